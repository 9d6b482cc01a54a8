#pragma once

#include <QImage>
#include <QSize>

namespace platform {

// An image whose pixels are not set yet. A large one lies in large pages of the system's memory,
// which come several times faster than ordinary ones when they are written first, and where one of
// its size has just gone, in that one's. Null where there is no memory for it. The format is one of
// 32 bits a pixel. Such images belong to the main thread.
[[nodiscard]] QImage unsetImage(QSize size, QImage::Format format);

} // namespace platform
