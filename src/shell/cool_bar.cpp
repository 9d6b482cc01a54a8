#include "shell/cool_bar.h"

#include <QPainter>
#include <algorithm>

namespace shell {

namespace {

constexpr int kMargin = 4;
constexpr int kBandGap = 8;
constexpr int kLeastFieldWidth = 260;

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

bool CoolBar::isShown(Band band) const
{
    return slot(band).content != nullptr && slot(band).visible;
}

int CoolBar::widthWithGap(Band band) const
{
    return isShown(band) ? slot(band).content->sizeHint().width() + kBandGap : 0;
}

void CoolBar::place(Band band, int x, int row, int width)
{
    QWidget* content = slot(band).content;
    const int height = std::min(content->sizeHint().height(), kRowHeight - 2);
    content->setGeometry(x, row * kRowHeight + (kRowHeight - height) / 2, std::max(width, 1),
                         height);
}

void CoolBar::layOut(int totalWidth)
{
    const int commands = widthWithGap(Band::Commands);
    const int keys = widthWithGap(Band::Keys);
    const int wholeRow = totalWidth - 2 * kMargin;
    const int firstRow = wholeRow - m_reserved;
    const bool keysBelow = commands > 0 && keys > 0 && commands + keys - kBandGap > firstRow;
    const int keysRow = keysBelow ? 1 : 0;
    const int beforeField = keysBelow ? 0 : commands; // in the row of the keys
    const int room = (keysBelow ? wholeRow : firstRow) - beforeField - keys;
    const bool fieldShown = isShown(Band::FileName);
    const bool fieldBelow = fieldShown && room < kLeastFieldWidth && beforeField + keys > 0;
    const bool fieldBetween = fieldShown && !fieldBelow;

    if (isShown(Band::Commands)) {
        place(Band::Commands, kMargin, 0, commands - kBandGap);
    }
    if (fieldBetween) {
        place(Band::FileName, kMargin + beforeField, keysRow, room - kBandGap);
    }
    if (isShown(Band::Keys)) {
        const int x = kMargin + beforeField + (fieldBetween ? room : 0);
        place(Band::Keys, x, keysRow, keys - kBandGap);
    }
    if (fieldBelow) {
        place(Band::FileName, kMargin, keysRow + 1, wholeRow);
    }
    for (Slot& band : m_slots) {
        if (band.content != nullptr) {
            band.content->setVisible(band.visible);
        }
    }
    const bool empty = commands == 0 && keys == 0 && !fieldShown;
    const int newHeight = empty ? 0 : kRowHeight * (1 + keysRow + (fieldBelow ? 1 : 0));
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
