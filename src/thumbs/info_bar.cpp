#include "thumbs/info_bar.h"

#include "widgets/colour_conversion.h"

#include <QPainter>

namespace thumbs {

namespace {

constexpr int kMargin = 3;
constexpr int kClosestStretch = 75; // percent of the font's own width

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
        QFont closer = font();
        closer.setStretch(std::max(kClosestStretch, 100 * room.width() / wanted));
        painter.setFont(closer);
    }
    painter.setPen(widgets::toQColor(m_text));
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

} // namespace thumbs
