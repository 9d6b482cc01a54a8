#pragma once

#include "widgets/button_geometry.h"
#include "widgets/button_styles.h"
#include "widgets/scaled_picture.h"

#include <QFont>
#include <QSize>
#include <QString>

class QPainter;

namespace widgets {

// Everything that a button shows at one moment.
struct ButtonFace {
    int type = 2;
    QSize size; // device-independent pixels
    ButtonPalette palette;
    ButtonState state = ButtonState::Normal;
    bool isOver = false;
    bool paintsFaceOver = false; // the pointer is over it and its scheme has a colour for that
    bool isChosen = false;       // has the focus, or is its window's default button
    bool showsFocusBox = false;
    QString caption; // with its "&" marks
    QFont font;
    ScaledPicture picture;
    PicturePlace picturePlace = PicturePlace::Left;
    bool usesMask = true;
    bool isGreyUntilOver = false;
    int specialEffect = 0; // 1 and 2 lay a shadow below the picture
};

// The size of a caption set in lines that fit the room; empty for an empty caption.
[[nodiscard]] QSize captionSize(const QString& caption, const QFont& font, int room);

// Paints the whole button with its top left corner at the painter's origin, and nothing outside its
// shape.
void paintButton(QPainter& painter, const ButtonFace& face);

} // namespace widgets
