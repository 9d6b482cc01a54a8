#pragma once

#include <QCursor>
#include <QImage>
#include <optional>

namespace widgets {

// In place of a shape's number: the picture that stands beside it.
inline constexpr int kCustomPointer = 99;

// The pointer of a control by its number, 1 to 15 for the classic shapes. None for 0, for numbers
// that aren't known and where the picture is missing: the pointer is that of the window around.
[[nodiscard]] std::optional<QCursor> pointerShape(int number, const QImage& picture);

} // namespace widgets
