#include "shell/status_bar.h"
#include "core/constants.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace shell {

namespace {

struct PanelShape {
    const char* name;    // for screen readers
    const char* longest; // the text that the panel must hold; null: shares the room that is left
    int stretch;
};

constexpr std::array<PanelShape, 8> kShapes{{
    {"File name", nullptr, 3},
    {"Message", nullptr, 2},
    {"Zoom", "      1500%  ", 0},
    {"Free panel", nullptr, 0},
    {"Free panel", nullptr, 0},
    {"Picture width", "32767      Pixel  ", 0},
    {"Picture height", "32767      Pixel  ", 0},
    {"File size", "1023.99 Kb       ", 0},
}};

constexpr int kSeparatorGap = 6;   // between a separator and the panels beside it, pixels
constexpr int kSeparatorInset = 5; // from the bar's edges

// What a screen reader says of a panel: its name replaces the text, so it has to hold that.
QString spoken(std::size_t panel, const QString& text)
{
    const QString name = QString::fromLatin1(kShapes.at(panel).name);
    const QString value = text.simplified();
    return value.isEmpty() ? name : name + QStringLiteral(": ") + value;
}

} // namespace

PanelBar::PanelBar(QWidget* parent)
    : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 0, 6, 0);
    row->setSpacing(2 * kSeparatorGap);
    for (std::size_t i = 0; i < kShapes.size(); ++i) {
        auto* label = new QLabel(this);
        label->setTextFormat(Qt::PlainText);
        label->setObjectName(QStringLiteral("StateBar_%1").arg(i + 1));
        label->setAccessibleName(spoken(i, QString()));
        label->setTextInteractionFlags(Qt::NoTextInteraction);
        label->setMinimumWidth(1);
        if (kShapes[i].longest != nullptr) {
            const QString longest = QString::fromLatin1(kShapes[i].longest);
            label->setFixedWidth(label->fontMetrics().horizontalAdvance(longest));
        }
        const bool unused = kShapes[i].longest == nullptr && kShapes[i].stretch == 0;
        label->setVisible(!unused);
        row->addWidget(label, kShapes[i].stretch);
        m_labels[i] = label;
    }
}

// A line before each panel but the first.
void PanelBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    bool first = true;
    for (const QLabel* label : m_labels) {
        if (label->isHidden()) {
            continue;
        }
        if (!first) {
            const int x = label->x() - kSeparatorGap;
            painter.drawLine(x, kSeparatorInset, x, height() - kSeparatorInset - 1);
        }
        first = false;
    }
}

void PanelBar::setPanel(core::Panel panel, const QString& text)
{
    const auto index = static_cast<std::size_t>(panel) - 1;
    if (m_texts[index] == text) {
        return;
    }
    m_texts[index] = text;
    // Half of a pair can stand in a file name and has no picture; it is shown as a box.
    m_labels[index]->setText(text);
    m_labels[index]->setAccessibleName(spoken(index, text));
}

QString PanelBar::panel(core::Panel panel) const
{
    return m_texts[static_cast<std::size_t>(panel) - 1];
}

} // namespace shell
