// Milliseconds that a picture file takes from its path to pixels, the file being in the page cache.
//   decode_bench REPETITIONS FILE...
// Each line has the name, then the median into memory that the picture before it has touched, the
// median into fresh memory, and the times that copying as many bytes takes into either.

#include "formats/format.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <vector>

namespace {

double milliseconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - start;
    return elapsed.count();
}

// The first run warms up and isn't counted.
double median(int repetitions, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int i = 0; i <= repetitions; ++i) {
        times.push_back(milliseconds(work));
    }
    times.erase(times.begin());
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void measure(int repetitions, const std::string& path)
{
    RawImage kept;
    const double warm = median(repetitions, [&] { OpenRawImage(path, kept); });
    const double fresh = median(repetitions, [&] {
        RawImage image;
        OpenRawImage(path, image);
    });
    formats::ByteBuffer target(kept.Pixels);
    const double copyWarm = median(
        repetitions, [&] { std::memcpy(target.data(), kept.Pixels.data(), kept.Pixels.size()); });
    const double copyFresh = median(repetitions, [&] { formats::ByteBuffer copy(kept.Pixels); });
    std::printf("%-16s %8.2f %8.2f   copy %8.2f %8.2f   %zu bytes\n",
                std::filesystem::path(path).filename().c_str(), warm, fresh, copyWarm, copyFresh,
                kept.Pixels.size());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("usage: decode_bench REPETITIONS FILE...\n", stderr);
        return 2;
    }
    for (int i = 2; i < argc; ++i) {
        measure(std::max(1, std::atoi(argv[1])), argv[i]);
    }
    return 0;
}
