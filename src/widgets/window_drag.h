#pragma once

#include <QPoint>

class QWidget;

namespace widgets {

// Moves a window, or a child inside its parent, along with the pointer until the left button is
// released. To be called from the handler of a left press. A window is handed to the desktop where
// that can move windows itself, as after a press on a title bar; otherwise, and for a child, it is
// moved here. A child keeps a part inside the parent that can be grabbed again.
void beginDrag(QWidget& target, QPoint globalPosition);

// Where a child of the size given may stand that was dragged to the wished place: its top inside
// the parent, at least 40 pixels of its width too.
[[nodiscard]] QPoint reachablePlace(QPoint wished, int width, int parentWidth, int parentHeight);

} // namespace widgets
