#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <functional>

// What stands on the screen of this process, as a user sees it.
namespace smoke {

// One pixel for each unit of length; of a sharper screen only some of the pixels.
[[nodiscard]] QImage screen();

// Looks again and again until the condition holds; false when it didn't within the time that a
// slow machine may need.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

// Near enough for a colour that went through a lossy format.
[[nodiscard]] bool isNear(QRgb pixel, QColor colour);

// The smallest rectangle around all pixels of a colour in a part of the screen; null without any.
[[nodiscard]] QRect boundsOf(const QImage& shot, const QRect& part, QColor colour);

enum class Ink { Label, Field }; // text of a label, or of a field that has the focus or not

// Whether a text stands somewhere in a part of the screen, drawn with the program's own font.
[[nodiscard]] bool showsText(const QImage& shot, const QRect& part, const QString& text,
                             Ink ink = Ink::Label);

// These wait. The last one takes a while when all is well.
[[nodiscard]] bool textAppears(const QRect& part, const QString& text, Ink ink = Ink::Label);
[[nodiscard]] bool colourAppears(const QRect& part, QColor colour, QSize size);
[[nodiscard]] bool colourStays(const QRect& part, QColor colour, QSize size);

} // namespace smoke
