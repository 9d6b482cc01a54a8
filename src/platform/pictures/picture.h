#pragma once

#include <QImage>

namespace platform {

enum class PictureType { None = 0, Bitmap = 1, Metafile = 2, Icon = 3, EnhancedMetafile = 4 };

// A picture as it is handed from the loader to windows and boxes: an immutable value that shares
// its pixels between copies. A default-made one is "Nothing": type None, size 0.
class Picture {
public:
    Picture() = default;
    explicit Picture(QImage image, PictureType type = PictureType::Bitmap);

    [[nodiscard]] PictureType type() const { return m_type; }
    [[nodiscard]] bool isNothing() const { return m_type == PictureType::None; }

    // Pixels of the picture.
    [[nodiscard]] int width() const { return m_image.width(); }
    [[nodiscard]] int height() const { return m_image.height(); }

    // As loaded, alpha included: for painting on a box or a widget. Device pixel ratio 1.
    [[nodiscard]] const QImage& image() const { return m_image; }

    // Over white, in QImage::Format_RGB32: what a DIB or a BMP file holds. Shares the pixels of
    // image() when that has this format already.
    [[nodiscard]] QImage flattened() const;

private:
    QImage m_image;
    PictureType m_type = PictureType::None;
};

} // namespace platform
