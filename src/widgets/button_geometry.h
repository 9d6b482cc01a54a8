#pragma once

#include <QRect>
#include <QRegion>
#include <QSize>
#include <QString>

// Where a button has its caption and picture, and which of its pixels are its own. Lengths are
// device-independent pixels.
namespace widgets {

enum class PicturePlace { Left = 0, Right = 1, Above = 2, Below = 3, Behind = 4 };

struct ButtonLayout {
    QRect caption; // empty for a button without caption
    QRect picture; // empty for a button without picture
};

// Caption and picture side by side (or one above the other) with the gap of their place between
// them, the two together in the middle of the button. Sizes are empty for what isn't there.
[[nodiscard]] ButtonLayout layOutButton(QSize button, QSize caption, QSize picture,
                                        PicturePlace place);

// The width that is left for lines of the caption.
[[nodiscard]] int captionRoom(QSize button, QSize picture, PicturePlace place);

// The button without the corners that its type leaves out. Of an oval it holds every pixel that the
// outline touches.
[[nodiscard]] QRegion shapeRegion(int type, QSize button);

// Whether a press there hits the button.
[[nodiscard]] bool shapeContains(int type, QSize button, QPoint point);

// The character behind the first "&" that isn't doubled; null without one.
[[nodiscard]] QChar accessKeyOf(const QString& caption);

} // namespace widgets
