// Times the reduction to 256 colours and tells its error:
//
//     colour_reduction_bench REPETITIONS PICTURE [REDUCED]
//
// Prints the milliseconds of the median repetition and the mean squared error of a channel. A
// second file with the same picture, reduced by another program, is measured the same way.

#include "platform/pictures/colour_reduction.h"

#include <QImage>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

double squaredError(QRgb left, QRgb right)
{
    const double red = qRed(left) - qRed(right);
    const double green = qGreen(left) - qGreen(right);
    const double blue = qBlue(left) - qBlue(right);
    return red * red + green * green + blue * blue;
}

template<typename PixelAt> double meanError(const QImage& original, PixelAt pixelAt)
{
    double sum = 0;
    for (int y = 0; y < original.height(); ++y) {
        for (int x = 0; x < original.width(); ++x) {
            sum += squaredError(original.pixel(x, y), pixelAt(x, y));
        }
    }
    return sum / 3 / original.width() / original.height();
}

double errorOf(const QImage& original, const platform::IndexedPicture& reduced)
{
    return meanError(original, [&](int x, int y) {
        const auto row = static_cast<std::size_t>(reduced.height - 1 - y);
        const std::byte number = reduced.bits[row * reduced.stride + static_cast<std::size_t>(x)];
        return reduced.table[std::to_integer<std::size_t>(number)];
    });
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 3) {
        std::fputs("colour_reduction_bench REPETITIONS PICTURE [REDUCED]\n", stderr);
        return 2;
    }
    const int repetitions = std::max(1, std::atoi(arguments[1]));
    const QImage image =
        QImage(QString::fromLocal8Bit(arguments[2])).convertToFormat(QImage::Format_RGB32);
    std::optional<platform::IndexedPicture> reduced;
    std::vector<double> times;
    for (int i = 0; i < repetitions; ++i) {
        const auto start = std::chrono::steady_clock::now();
        reduced = platform::reduceColours(image);
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        times.push_back(time.count());
    }
    if (!reduced) {
        std::fputs("The picture can't be read.\n", stderr);
        return 1;
    }
    std::sort(times.begin(), times.end());
    std::printf("reduce_colours %.1f ms, error %.2f\n", times[times.size() / 2],
                errorOf(image, *reduced));
    if (count > 3) {
        const QImage other(QString::fromLocal8Bit(arguments[3]));
        if (other.size() != image.size()) {
            std::fputs("The reduced picture has another size.\n", stderr);
            return 1;
        }
        std::printf("other_program error %.2f\n",
                    meanError(image, [&](int x, int y) { return other.pixel(x, y); }));
    }
    return 0;
}
