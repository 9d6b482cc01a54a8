#include "thumbs/loaded_picture.h"

#include "platform/pictures/transfers.h"

namespace thumbs {

namespace {

constexpr int kLongestSideKept = 1024;

} // namespace

void LoadedPicture::thinOut()
{
    const QImage& image = picture.image();
    const QSize kept(kLongestSideKept, kLongestSideKept);
    if (image.width() <= kept.width() && image.height() <= kept.height()) {
        return;
    }
    const QSize size = image.size().scaled(kept, Qt::KeepAspectRatio).expandedTo({1, 1});
    QImage thin(size, image.format());
    if (platform::StretchBlt(thin, {0, 0, size.width(), size.height()}, image,
                             {0, 0, image.width(), image.height()},
                             platform::StretchMode::ColorOnColor)) {
        picture = platform::Picture(thin, picture.type());
    }
}

} // namespace thumbs
