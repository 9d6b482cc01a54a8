#include "thumbs/progress_strip.h"

#include "widgets/colour_conversion.h"

#include <QPainter>
#include <algorithm>

namespace thumbs {

ProgressStrip::ProgressStrip(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ProgressStrip::setBackground(base::Colour colour)
{
    if (colour != m_background) {
        m_background = colour;
        update();
    }
}

void ProgressStrip::fill(double fraction, base::Colour colour)
{
    const int before = filledWidth();
    m_fraction = std::clamp(fraction, 0.0, 1.0);
    if (colour != m_colour || filledWidth() != before) {
        m_colour = colour;
        update();
    }
}

int ProgressStrip::filledWidth() const
{
    return static_cast<int>(m_fraction * width());
}

void ProgressStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(m_background));
    painter.fillRect(0, 0, filledWidth(), height(), widgets::toQColor(m_colour));
}

} // namespace thumbs
