#include "widgets/slider_knob.h"

#include "widgets/colour_conversion.h"

#include <QLinearGradient>
#include <QPainter>

namespace widgets {

namespace {

constexpr int kLength = 11; // along the axis
constexpr int kBreadth = 21;
constexpr base::Colour kLight = base::rgb(0xFD, 0xFD, 0xFE);
constexpr base::Colour kDark = base::rgb(0xCF, 0xD5, 0xDE);
constexpr base::Colour kEdge = base::rgb(0x5C, 0x6B, 0x80);
constexpr base::Colour kFocusEdge = base::rgb(0x1F, 0x5F, 0xBF);

} // namespace

SliderKnob::SliderKnob(QWidget* parent)
    : QWidget(parent)
{
    setObjectName("Slider");
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SliderKnob::dress(const ScaledPicture& icon, SliderAxis axis)
{
    m_icon = icon;
    if (!icon.isNull()) {
        resize(icon.size());
    } else if (axis == SliderAxis::Horizontal) {
        resize(kLength, kBreadth);
    } else {
        resize(kBreadth, kLength);
    }
    update();
}

void SliderKnob::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (!m_icon.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), m_icon.forRatio(devicePixelRatioF()));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient shine(0, 0, 0, height());
    shine.setColorAt(0, toQColor(kLight));
    shine.setColorAt(1, toQColor(kDark));
    const bool hasFocus = parentWidget() != nullptr && parentWidget()->hasFocus();
    painter.setOpacity(isEnabled() ? 1.0 : 0.5);
    painter.setPen(QPen(toQColor(hasFocus ? kFocusEdge : kEdge), hasFocus ? 2 : 1));
    painter.setBrush(shine);
    const double inset = hasFocus ? 1.0 : 0.5;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3, 3);
}

} // namespace widgets
