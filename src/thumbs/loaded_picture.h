#pragma once

#include "platform/pictures/picture.h"

#include <QSize>

namespace thumbs {

// The scratch box that a run loads one picture at a time into. A JPEG is decoded at the size that
// its tile needs; naturalSize tells the whole picture's. At first it holds nothing but has a size.
struct LoadedPicture {
    platform::Picture picture;
    QSize naturalSize = {1, 1};

    // Leaves out pixels of a large picture, so that it takes little room while the next one is
    // decoded and after the run. It is seen again only in place of a damaged file.
    void thinOut();
};

} // namespace thumbs
