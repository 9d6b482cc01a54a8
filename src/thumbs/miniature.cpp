#include "thumbs/miniature.h"

#include "files/classification.h"
#include "formats/hooks.h"
#include "platform/os/files.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/raw_image_drawing.h"
#include "thumbs/picture_fit.h"

namespace thumbs {

namespace {

// The readers of the own formats decode whole pictures.
constexpr qint64 kLargestOwnFile = qint64(32) << 20;

// What a reader tells while it works isn't for those who only want to see the file.
class QuietReaders {
public:
    QuietReaders() { formats::setHooks({}); }
    ~QuietReaders() { formats::setHooks(m_before); }
    QuietReaders(const QuietReaders&) = delete;
    QuietReaders& operator=(const QuietReaders&) = delete;

private:
    formats::Hooks m_before = formats::hooks();
};

QImage ownPicture(const QString& path)
{
    if (platform::fileSize(path).value_or(0) > kLargestOwnFile) {
        return {};
    }
    const QuietReaders quiet;
    RawImage record;
    platform::PictureBox box;
    if (!platform::decodeToBox(path, box, record, platform::OnFailure::GoOn)) {
        return {};
    }
    return box.drawnImage().flattened();
}

QImage loadedPicture(const QString& path, QSize box)
{
    const auto tile = platform::loadTilePicture(path, box, &fitPicture);
    return tile ? tile->picture.image() : QImage();
}

} // namespace

QImage miniature(const QString& path, double ratio)
{
    const QSize box = (QSizeF(kMiniatureSide, kMiniatureSide) * ratio).toSize();
    const QImage picture = files::isOwnFormat(path) ? ownPicture(path) : loadedPicture(path, box);
    if (picture.isNull()) {
        return {};
    }
    const QSize size = fitPicture(picture.size(), box).expandedTo({1, 1});
    QImage small = picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    small.setDevicePixelRatio(ratio);
    return small;
}

} // namespace thumbs
