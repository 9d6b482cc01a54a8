#include "platform/desktop/message_box.h"

#include "platform/desktop/wrapped_label.h"

#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace platform {

namespace {

constexpr int kSpacing = 12; // pixels
constexpr int kLeastWidth = 320;
constexpr int kTitleSides = 160; // what a frame draws beside a title: icon, button, edges

QStyle::StandardPixmap pixmapOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Exclamation:
        return QStyle::SP_MessageBoxWarning;
    case BoxIcon::Critical:
        return QStyle::SP_MessageBoxCritical;
    case BoxIcon::Question:
        return QStyle::SP_MessageBoxQuestion;
    case BoxIcon::Information:
    case BoxIcon::None:
        break;
    }
    return QStyle::SP_MessageBoxInformation;
}

} // namespace

MessageBox::MessageBox(QWidget* parent)
    : QDialog(parent)
    , m_column(new QVBoxLayout(this))
    , m_row(new QHBoxLayout)
    , m_words(new QVBoxLayout)
{
    m_column->setSizeConstraint(QLayout::SetFixedSize);
    m_column->setSpacing(kSpacing);
    m_column->addLayout(m_row);
    m_row->setSpacing(kSpacing);
    m_words->addStretch();
    m_words->addStretch();
    m_row->addLayout(m_words, 1);
}

void MessageBox::setWords(const QString& text, const QString& title)
{
    setWindowTitle(title);
    QFont titleFont = font();
    titleFont.setBold(true);
    const int titleWidth = QFontMetrics(titleFont).horizontalAdvance(title) + kTitleSides;
    const QMargins margins = m_column->contentsMargins();
    m_column->insertSpacerItem(
        0,
        new QSpacerItem(std::max(kLeastWidth, titleWidth) - margins.left() - margins.right(), 0));
    auto* const label = new WrappedLabel(text, this);
    label->setObjectName(QStringLiteral("text"));
    m_words->insertWidget(1, label);
}

void MessageBox::setFacts(const QString& facts)
{
    auto* const label = new WrappedLabel(facts, this);
    label->setObjectName(QStringLiteral("facts"));
    m_words->insertWidget(m_words->count() - 1, label);
}

void MessageBox::setIcon(BoxIcon icon)
{
    if (icon != BoxIcon::None) {
        const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        addBeforeWords(style()
                           ->standardIcon(pixmapOf(icon), nullptr, this)
                           .pixmap(QSize(size, size), devicePixelRatioF()),
                       "icon");
    }
}

void MessageBox::setPicture(const QImage& picture)
{
    addBeforeWords(QPixmap::fromImage(picture), "picture");
}

void MessageBox::addBeforeWords(const QPixmap& pixmap, const char* name)
{
    auto* const label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setPixmap(pixmap);
    m_row->insertWidget(m_row->count() - 1, label, 0, Qt::AlignVCenter);
}

void MessageBox::addOk()
{
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("&OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    m_column->addWidget(buttons);
}

void MessageBox::addYesNo(Answer preset)
{
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const yes = buttons->addButton(QStringLiteral("&Yes"), QDialogButtonBox::YesRole);
    QPushButton* const no = buttons->addButton(QStringLiteral("&No"), QDialogButtonBox::NoRole);
    QPushButton* const first = preset == Answer::Yes ? yes : no;
    first->setDefault(true);
    first->setFocus();
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
    m_column->addWidget(buttons);
}

void MessageBox::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace platform
