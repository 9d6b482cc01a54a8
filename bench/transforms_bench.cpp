// Times the edits of a picture: transforms_bench REPETITIONS
//
// Prints the milliseconds of the median repetition: both flips of 24 megapixels beside a copy of
// the same pixels, and 100 megapixels brought to 1600 by 1200 beside the toolkit's smooth scaling.

#include "platform/pictures/transforms.h"

#include <QImage>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

template<typename Work> void report(const char* name, int repetitions, Work work)
{
    std::vector<double> times;
    for (int i = 0; i < repetitions; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        times.push_back(time.count());
    }
    std::sort(times.begin(), times.end());
    std::printf("%-24s %8.1f ms (least %.1f)\n", name, times[times.size() / 2], times.front());
}

QImage pattern(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            row[x] = qRgb(x & 255, y & 255, (x * y) & 255);
        }
    }
    return image;
}

volatile int kept;

void keep(const QImage& image)
{
    kept = image.width();
}

} // namespace

int main(int count, char** arguments)
{
    const int repetitions = count > 1 ? std::max(1, std::atoi(arguments[1])) : 5;
    {
        const QImage image = pattern(6000, 4000);
        std::vector<uchar> touched(static_cast<std::size_t>(image.sizeInBytes()), 1);
        report("memcpy_touched_24mp", repetitions,
               [&] { std::memcpy(touched.data(), image.constBits(), touched.size()); });
        report("copy_fresh_24mp", repetitions, [&] { keep(image.copy()); });
        report("flip_vertical_24mp", repetitions,
               [&] { keep(platform::flippedTopToBottom(image)); });
        report("flip_horizontal_24mp", repetitions,
               [&] { keep(platform::flippedLeftToRight(image)); });
        report("mirror_24mp", repetitions,
               [&] { keep(platform::mirrored(image, platform::Half::Left)); });
    }
    const QImage image = pattern(12000, 8400);
    report("scale_100mp", repetitions, [&] { keep(platform::scaledTo(image, QSize(1600, 1200))); });
    report("toolkit_smooth_100mp", repetitions, [&] {
        keep(image.scaled(1600, 1200, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    });
    return 0;
}
