#include "widgets/progress_strip.h"

#include "platform/desktop/screen_flush.h"
#include "widgets/colour_conversion.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace widgets {

namespace {

constexpr int kFrameMs = 25;

} // namespace

ProgressStrip::ProgressStrip(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
}

void ProgressStrip::showStrip(bool visible)
{
    m_fraction = 0;
    setVisible(visible);
}

void ProgressStrip::setBackground(base::Colour colour)
{
    if (m_background != colour) {
        m_background = colour;
        update();
    }
}

void ProgressStrip::fill(double fraction, base::Colour colour)
{
    if (!std::isfinite(fraction)) {
        return;
    }
    const double cut = std::clamp(fraction, 0.0, 1.0);
    const bool sameWidth =
        static_cast<int>(cut * width()) == static_cast<int>(m_fraction * width());
    m_fraction = cut;
    if (sameWidth && m_colour == colour) {
        return;
    }
    m_colour = colour;
    update();
}

void ProgressStrip::fillAtOnce(double fraction, base::Colour colour)
{
    const bool done = fraction >= 1;
    if (isHidden() && !done) {
        show();
        m_shownAtOnce = true;
        m_painted.invalidate();
    }
    fill(fraction, colour);
    if (done && std::exchange(m_shownAtOnce, false)) {
        hide();
    } else if (!m_painted.isValid() || m_painted.hasExpired(kFrameMs)) {
        repaint();
        platform::flushScreen();
        m_painted.start();
    }
}

void ProgressStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), toQColor(m_background));
    painter.fillRect(QRectF(0, 0, m_fraction * width(), height()), toQColor(m_colour));
}

} // namespace widgets
