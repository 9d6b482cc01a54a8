// What the slider is set to: the setters with their guards, and the stored form of all properties.
#include "widgets/slider.h"

#include "widgets/slider_accessible.h"
#include "widgets/slider_knob.h"

#include <algorithm>

using widgets::PropertyError;
using widgets::ScaledPicture;
using widgets::SliderAxis;

namespace {

constexpr int kLastEdgeStyle = 3;
constexpr int kPictureRail = 99;

} // namespace

void cpvSlider::setBackColor(base::Colour colour)
{
    if (colour != m_backColor) {
        m_backColor = colour;
        update();
    }
}

PropertyError cpvSlider::setMax(int maximum)
{
    if (maximum <= m_scale.minimum) {
        return PropertyError::InvalidValue;
    }
    m_scale.maximum = maximum;
    placeKnob();
    return PropertyError::None;
}

PropertyError cpvSlider::setMin(int minimum)
{
    if (minimum >= m_scale.maximum) {
        return PropertyError::InvalidValue;
    }
    m_scale.minimum = minimum;
    if (m_value < minimum) {
        takeValue(minimum);
    } else {
        placeKnob();
    }
    return PropertyError::None;
}

PropertyError cpvSlider::setValue(int value)
{
    if (value < m_scale.minimum || value > m_scale.maximum) {
        return PropertyError::InvalidValue;
    }
    takeValue(value);
    return PropertyError::None;
}

void cpvSlider::takeValue(int value)
{
    if (value == m_value) {
        return;
    }
    m_value = value;
    if (!m_dragging) {
        placeKnob();
    }
    update();
    if (m_dragging && m_showValueTip) {
        showTip();
    }
    widgets::announceSliderValue(*this);
    emit ValueChanged();
    if (m_value == m_scale.maximum) {
        emit ArrivedLast();
    }
    if (m_value == m_scale.minimum) {
        emit ArrivedFirst();
    }
}

void cpvSlider::setOrientation(int orientation)
{
    if (orientation == Orientation() || orientation < 0 || orientation > 1) {
        return;
    }
    m_scale.axis = static_cast<SliderAxis>(orientation);
    m_knob->dress(m_knob->icon(), m_scale.axis);
    placeKnob();
    updateGeometry();
    update();
}

void cpvSlider::setRailStyle(int style)
{
    const bool isKnown = style == kPictureRail || (style >= 0 && style <= kLastEdgeStyle);
    if (isKnown && style != m_railStyle) {
        m_railStyle = style;
        update();
    }
}

const ScaledPicture& cpvSlider::SliderIcon() const
{
    return m_knob->icon();
}

void cpvSlider::setSliderIcon(const ScaledPicture& icon)
{
    m_knob->dress(icon, m_scale.axis);
    placeKnob();
    update();
}

void cpvSlider::setRailPicture(const ScaledPicture& picture)
{
    m_iRailPicture = picture;
    update();
}

QVariantMap cpvSlider::WriteProperties() const
{
    return {{"Enabled", Enabled()},
            {"BackColor", m_backColor},
            {"Max", Max()},
            {"Min", Min()},
            {"Value", m_value},
            {"Orientation", Orientation()},
            {"RailStyle", m_railStyle},
            {"SliderIcon", SliderIcon().forRatio(1)},
            {"RailPicture", m_iRailPicture.forRatio(1)},
            {"ShowValueTip", m_showValueTip}};
}

void cpvSlider::ReadProperties(const QVariantMap& bag)
{
    setEnabled(bag.value("Enabled", true).toBool());
    setBackColor(bag.value("BackColor", base::systemColour(15)).toUInt());
    setOrientation(bag.value("Orientation", 1).toInt());
    setRailStyle(bag.value("RailStyle", 0).toInt());
    setSliderIcon(bag.value("SliderIcon").value<QImage>());
    setRailPicture(bag.value("RailPicture").value<QImage>());
    m_showValueTip = bag.value("ShowValueTip", true).toBool();
    // Stored bounds may lie wholly outside those that hold now, so they are taken together.
    const int minimum = bag.value("Min", 0).toInt();
    const int maximum = bag.value("Max", 10).toInt();
    if (minimum < maximum) {
        m_scale.minimum = minimum;
        m_scale.maximum = maximum;
    }
    m_value = std::clamp(bag.value("Value", 0).toInt(), m_scale.minimum, m_scale.maximum);
    placeKnob();
}
