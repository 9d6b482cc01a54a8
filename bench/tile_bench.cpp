// Makes the tile of each picture, one after the other, as a thumbnail page does:
//
//     tile_bench SIZE PICTURES...
//
// Prints the pictures a second. Nothing is shown or written.

#include "platform/pictures/picture_loader.h"
#include "platform/pictures/transfers.h"

#include <QString>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

QSize fitInto(QSize natural, QSize box)
{
    return natural.scaled(box, Qt::KeepAspectRatio);
}

bool makeTile(const char* path, QSize box)
{
    const auto tile = platform::loadTilePicture(QString::fromLocal8Bit(path), box, fitInto);
    if (!tile) {
        return false;
    }
    const QImage& image = tile->picture.image();
    return !platform::stretched(image, {0, 0, image.width(), image.height()},
                                fitInto(tile->naturalSize, box))
                .isNull();
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 3) {
        std::fputs("tile_bench SIZE PICTURES...\n", stderr);
        return 2;
    }
    const int size = std::atoi(arguments[1]);
    int failed = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 2; i < count; ++i) {
        failed += makeTile(arguments[i], QSize(size, size)) ? 0 : 1;
    }
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::printf("tiles_%d %.1f per second, %d failed\n", size, (count - 2) / time.count(), failed);
    return failed == 0 ? 0 : 1;
}
