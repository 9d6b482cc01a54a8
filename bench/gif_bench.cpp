// Times the GIF encoder: gif_bench REPETITIONS WIDTH HEIGHT INDICES [OUTPUT]
//
// The input is 256 colours of three bytes, red first, then the pixels from the top row down. Prints
// the milliseconds of the median repetition, from bitmap to finished file in memory.

#include "formats/gif_writer.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kTableBytes = 768;

struct Bitmap {
    formats::GifBitmapInfo info;
    std::vector<std::byte> bits;
};

Bitmap bitmapFrom(const std::string& bytes, int width, int height)
{
    Bitmap bitmap;
    bitmap.info.width = width;
    bitmap.info.height = height;
    const auto colourByte = [&bytes](std::size_t at) {
        return static_cast<std::uint8_t>(bytes[at]);
    };
    for (std::size_t i = 0; i < bitmap.info.colours.size(); ++i) {
        bitmap.info.colours[i] = {colourByte(3 * i), colourByte(3 * i + 1), colourByte(3 * i + 2)};
    }
    const std::size_t stride = formats::gifStride(bitmap.info);
    const auto columns = static_cast<std::size_t>(width);
    const auto rows = static_cast<std::size_t>(height);
    bitmap.bits.resize(stride * rows);
    for (std::size_t y = 0; y < rows; ++y) {
        const std::size_t from = kTableBytes + y * columns;
        for (std::size_t x = 0; x < columns; ++x) {
            bitmap.bits[(rows - 1 - y) * stride + x] = static_cast<std::byte>(bytes[from + x]);
        }
    }
    return bitmap;
}

double encodeMilliseconds(const Bitmap& bitmap, std::vector<std::byte>& file)
{
    const auto start = std::chrono::steady_clock::now();
    file.clear();
    file.shrink_to_fit();
    if (!WriteGifFile(bitmap.info, bitmap.bits, file)) {
        std::exit(1);
    }
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    return time.count();
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 5) {
        std::fputs("gif_bench REPETITIONS WIDTH HEIGHT INDICES [OUTPUT]\n", stderr);
        return 2;
    }
    const int repetitions = std::atoi(arguments[1]);
    const int width = std::atoi(arguments[2]);
    const int height = std::atoi(arguments[3]);
    std::ifstream input(arguments[4], std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(input)), {});
    if (repetitions < 1 || width < 1 || height < 1 ||
        bytes.size() <
            kTableBytes + static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
        std::fputs("The input is too short for this size.\n", stderr);
        return 1;
    }
    const Bitmap bitmap = bitmapFrom(bytes, width, height);
    std::vector<std::byte> file;
    std::vector<double> times;
    for (int i = 0; i <= repetitions; ++i) {
        times.push_back(encodeMilliseconds(bitmap, file));
    }
    // The first run warms the caches up.
    std::sort(times.begin() + 1, times.end());
    std::printf("gif_encode %.2f out=%zu\n", times[1 + static_cast<std::size_t>(repetitions) / 2],
                file.size());
    if (count > 5) {
        std::ofstream output(arguments[5], std::ios::binary);
        output.write(reinterpret_cast<const char*>(file.data()),
                     static_cast<std::streamsize>(file.size()));
        return output.flush() ? 0 : 1;
    }
    return 0;
}
