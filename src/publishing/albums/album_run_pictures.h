#pragma once

#include "platform/pictures/picture.h"

#include <QString>

namespace albums {

// How a picture becomes a JPEG file of an album.
struct JpegWay {
    int quality = 0; // 1 to 100; others are taken for the nearest of these
    // By way of the working file of albums, where others may look at what is being compressed, and
    // from there by BMPToJPG. Otherwise straight from memory.
    bool throughWorkingFile = false;
};

// A failure leaves the target as it was and isn't told.
void compress(const platform::Picture& picture, const QString& target, const JpegWay& way);

} // namespace albums
