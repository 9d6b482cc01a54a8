#pragma once

#include "platform/pictures/picture.h"

#include <QImage>

inline platform::Picture plainPicture(int width, int height, QRgb colour = qRgb(40, 80, 120))
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return platform::Picture(image);
}

// Every pixel differs from its neighbours and tells where it stands.
inline platform::Picture tellingPicture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgb(x & 0xFF, y & 0xFF, (x * 7 + y * 13) & 0xFF));
        }
    }
    return platform::Picture(image);
}
