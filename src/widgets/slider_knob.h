#pragma once

#include "widgets/scaled_picture.h"
#include "widgets/slider_scale.h"

#include <QWidget>

namespace widgets {

// The knob of a slider. It leaves the mouse to the slider below it.
class SliderKnob : public QWidget {
    Q_OBJECT

public:
    explicit SliderKnob(QWidget* parent);

    [[nodiscard]] const ScaledPicture& icon() const { return m_icon; }

    // Takes the icon's size; without one it has a size and a look of its own for the axis.
    void dress(const ScaledPicture& icon, SliderAxis axis);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ScaledPicture m_icon;
};

} // namespace widgets
