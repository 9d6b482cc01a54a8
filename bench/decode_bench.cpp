// Milliseconds that a picture file takes from its path to pixels, the file being in the page cache.
//   decode_bench REPETITIONS FILE...
// Prints four rows for each file, with its name, what was measured, the median, the least and the
// most: reading it into memory that the picture before it has touched, reading it into fresh
// memory, and copying as many bytes into either.

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
std::vector<double> sortedTimes(int repetitions, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int i = 0; i <= repetitions; ++i) {
        times.push_back(milliseconds(work));
    }
    times.erase(times.begin());
    std::sort(times.begin(), times.end());
    return times;
}

void measure(int repetitions, const std::string& path)
{
    const std::string name = std::filesystem::path(path).filename();
    const auto print = [&](const char* what, const std::function<void()>& work) {
        const auto times = sortedTimes(repetitions, work);
        std::printf("%-16s %-16s %8.2f %8.2f %8.2f\n", name.c_str(), what, times[times.size() / 2],
                    times.front(), times.back());
    };
    RawImage kept;
    print("read", [&] { OpenRawImage(path, kept); });
    print("read_fresh", [&] {
        RawImage image;
        OpenRawImage(path, image);
    });
    formats::ByteBuffer target(kept.Pixels);
    print("copy", [&] { std::memcpy(target.data(), kept.Pixels.data(), kept.Pixels.size()); });
    print("copy_fresh", [&] { formats::ByteBuffer copy(kept.Pixels); });
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
