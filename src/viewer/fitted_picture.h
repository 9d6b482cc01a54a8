#pragma once

#include "viewer/dib32.h"

#include <QImage>
#include <QSize>

namespace viewer {

// A picture scaled as a whole to one size, kept until the picture or the size changes, so that
// showing it again costs no more than the pixels shown.
class FittedPicture {
public:
    // The picture averaged down (or enlarged) to the size in device pixels, marked with their
    // ratio; null when it can't be made. Made anew only when something differs from the last call.
    const QImage& rendition(const cDIB32& picture, QSize devicePixels, double deviceRatio);

    void clear() { m_image = QImage(); }

private:
    QImage m_image;
    qint64 m_pictureKey = 0;
};

} // namespace viewer
