#pragma once

#include <QImage>
#include <QSize>

// What the edits do to pixels. Images are 32 bits a pixel and come back in their own format. Null
// where there is no memory for the result; a null image gives a null one.
namespace platform {

[[nodiscard]] QImage flippedTopToBottom(const QImage& image);
[[nodiscard]] QImage flippedLeftToRight(const QImage& image);

// One half across the vertical centre line stays, the other becomes its mirror image. The middle
// column of an odd width belongs to both.
enum class Half { Left, Right };
[[nodiscard]] QImage mirrored(const QImage& image, Half kept);

// The picture at another size: pixels are averaged where it shrinks. Null for an empty size, one
// beyond the memory that a picture may take, and sides longer than the viewer counts.
[[nodiscard]] QImage scaledTo(const QImage& image, QSize size);

} // namespace platform
