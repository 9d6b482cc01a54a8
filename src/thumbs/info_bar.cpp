#include "thumbs/info_bar.h"

#include "widgets/colour_conversion.h"

#include <QFontInfo>
#include <QPainter>
#include <algorithm>

namespace thumbs {

namespace {

constexpr int kMargin = 3;
constexpr double kSmallestShare = 0.75; // of the font's own size

} // namespace

InfoBar::InfoBar(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void InfoBar::setColours(base::Colour background, base::Colour text)
{
    m_background = background;
    m_text = text;
    update();
}

QSize InfoBar::sizeHint() const
{
    return {100, fontMetrics().height() + 2 * kMargin + 2};
}

void InfoBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(m_background));
    const QRect room = rect().adjusted(kMargin, 0, -kMargin, 0);
    const int wanted = painter.fontMetrics().horizontalAdvance(text());
    if (wanted > room.width() && wanted > 0) {
        const double share = static_cast<double>(room.width()) / wanted;
        QFont smaller = font();
        const int pixels = QFontInfo(smaller).pixelSize();
        smaller.setPixelSize(static_cast<int>(pixels * std::max(kSmallestShare, share)));
        painter.setFont(smaller);
    }
    painter.setPen(widgets::toQColor(m_text));
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

} // namespace thumbs
