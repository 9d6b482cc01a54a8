#pragma once

#include "base/colours.h"

#include <QRegion>

class QWidget;

namespace platform {
class PictureBox;
}

// Cuts a window to the shape of its picture, and lets it be dragged without a title bar.
class clsTransForm {
public:
    // Takes every pixel of the transparent colour out of the target's shape; exactly one of the two
    // targets is given, anything else is reported in a message box and changes nothing. The pixels
    // of a form are those that it paints itself, without its children, and the form gets the shape
    // at once. A picture box is no window: whoever shows it puts region() on its widget.
    // The scan goes along rows if horizontal, else along columns.
    void ShapeMe(base::Colour transparentColour, bool horizontal, QWidget* form,
                 const platform::PictureBox* pictureBox);

    // To be called from a press inside the form; button 1 is the left one, others do nothing.
    void DragForm(QWidget& form, int button) const;

    // The shape found last, in pixels of the target.
    [[nodiscard]] const QRegion& region() const { return m_region; }

private:
    QRegion m_region;
};
