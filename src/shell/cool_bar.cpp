#include "shell/cool_bar.h"

#include <QPainter>
#include <algorithm>

namespace shell {

namespace {

constexpr int kMargin = 4;
constexpr int kBandGap = 8;
constexpr int kLeastFieldWidth = 260;

int hintWidth(const QWidget* widget)
{
    return widget->sizeHint().width();
}

} // namespace

CoolBar::CoolBar(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("CoolBar"));
    setAccessibleName(QStringLiteral("Toolbars"));
}

void CoolBar::setBand(Band band, QWidget* content)
{
    slot(band).content = content;
    content->setParent(this);
}

void CoolBar::setBandVisible(Band band, bool visible)
{
    if (slot(band).visible == visible) {
        return;
    }
    slot(band).visible = visible;
    layOut(width());
}

bool CoolBar::isBandVisible(Band band) const
{
    return slot(band).visible;
}

void CoolBar::setReservedWidth(int width)
{
    m_reserved = width;
}

void CoolBar::layOut(int totalWidth)
{
    const auto shown = [this](Band band) {
        return slot(band).content != nullptr && slot(band).visible;
    };
    const int commands =
        shown(Band::Commands) ? hintWidth(slot(Band::Commands).content) + kBandGap : 0;
    const int keys = shown(Band::Keys) ? hintWidth(slot(Band::Keys).content) + kBandGap : 0;
    const int room = totalWidth - 2 * kMargin - m_reserved - commands - keys;
    const bool fieldBelow = shown(Band::FileName) && room < kLeastFieldWidth && commands + keys > 0;

    const auto place = [](QWidget* content, int x, int row, int width) {
        const int height = std::min(content->sizeHint().height(), kRowHeight - 2);
        content->setGeometry(x, row * kRowHeight + (kRowHeight - height) / 2, std::max(width, 1),
                             height);
    };
    int x = kMargin;
    if (shown(Band::Commands)) {
        place(slot(Band::Commands).content, x, 0, commands - kBandGap);
        x += commands;
    }
    if (shown(Band::FileName) && !fieldBelow) {
        const int width = room - kBandGap;
        place(slot(Band::FileName).content, x, 0, width);
        x += width + kBandGap;
    }
    if (shown(Band::Keys)) {
        place(slot(Band::Keys).content, x, 0, keys - kBandGap);
    }
    if (fieldBelow) {
        place(slot(Band::FileName).content, kMargin, 1, totalWidth - 2 * kMargin);
    }
    for (Slot& band : m_slots) {
        if (band.content != nullptr) {
            band.content->setVisible(band.visible);
        }
    }
    const bool empty = commands == 0 && keys == 0 && !shown(Band::FileName);
    const int newHeight = empty ? 0 : kRowHeight * (fieldBelow ? 2 : 1);
    const bool changed = newHeight != height();
    resize(totalWidth, newHeight);
    if (changed) {
        emit heightChanged();
    }
}

void CoolBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, height() - 1, width() - 1, height() - 1);
}

} // namespace shell
