// Times the copy of a large file beside the cp of the system:
//
//     copy_bench FOLDER [MEGABYTES] [ROUNDS]
//
// Writes a file of random bytes into the folder, a gigabyte by default, and copies it there in
// turns: to a free name, and over a file, where the copy waits for the disk and cp is followed by
// sync of the file. All is in the page cache before. Prints the seconds of the fastest and the
// median round, and the ratios.

#include "platform/os/file_transfer.h"
#include "platform/os/paths.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

double secondsOf(const std::function<bool()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    const bool isDone = work();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    if (!isDone) {
        std::fprintf(stderr, "The copy failed.\n");
        std::exit(1);
    }
    return time.count();
}

bool runProgram(const char* name, const std::string& first, const std::string& second)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::execlp(name, name, first.c_str(), second.empty() ? nullptr : second.c_str(), nullptr);
        ::_exit(127);
    }
    int status = 1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

void writeNoise(const std::string& file, int megabytes)
{
    std::mt19937_64 random(1);
    std::vector<std::uint64_t> block((std::size_t(1) << 20) / sizeof(std::uint64_t));
    std::ofstream stream(file, std::ios::binary);
    for (int i = 0; i < megabytes; ++i) {
        std::generate(block.begin(), block.end(), std::ref(random));
        stream.write(reinterpret_cast<const char*>(block.data()), 1 << 20);
    }
}

// Nothing of the round before waits for the disk.
void settle(const std::string& target, bool overAFile)
{
    std::filesystem::remove(target);
    if (overAFile) {
        std::ofstream(target) << "old";
    }
    ::sync();
}

struct Times {
    std::vector<double> ours;
    std::vector<double> others;
};

void report(const char* name, Times times)
{
    std::sort(times.ours.begin(), times.ours.end());
    std::sort(times.others.begin(), times.others.end());
    const std::size_t middle = times.ours.size() / 2;
    std::printf("%-24s best %6.3f s  cp %6.3f s  ratio %.2f   median %6.3f s  cp %6.3f s  "
                "ratio %.2f\n",
                name, times.ours[0], times.others[0], times.ours[0] / times.others[0],
                times.ours[middle], times.others[middle],
                times.ours[middle] / times.others[middle]);
}

void measure(const std::string& folder, bool overAFile, int rounds)
{
    const std::string source = folder + "/copy_bench.source";
    const std::string target = folder + "/copy_bench.target";
    const QString from = platform::fromNative(source);
    const QString to = platform::fromNative(target);
    qint64 told = 0;
    const auto progress = [&told](qint64 done, qint64 /*total*/) {
        told = done;
        return true;
    };
    Times times;
    for (int round = 0; round < rounds; ++round) {
        settle(target, overAFile);
        times.others.push_back(secondsOf([&] {
            return runProgram("cp", source, target) &&
                   (!overAFile || runProgram("sync", target, {}));
        }));
        settle(target, overAFile);
        times.ours.push_back(secondsOf([&] { return platform::copyTo(from, to, progress); }));
    }
    report(overAFile ? "over a file, on the disk" : "to a free name", times);
    std::filesystem::remove(target);
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 2) {
        std::fprintf(stderr, "copy_bench FOLDER [MEGABYTES] [ROUNDS]\n");
        return 2;
    }
    const std::string folder = arguments[1];
    const int megabytes = count > 2 ? std::max(1, std::atoi(arguments[2])) : 1024;
    const int rounds = count > 3 ? std::max(1, std::atoi(arguments[3])) : 5;
    writeNoise(folder + "/copy_bench.source", megabytes);
    for (const bool overAFile : {false, true}) {
        measure(folder, overAFile, rounds);
    }
    std::filesystem::remove(folder + "/copy_bench.source");
    return 0;
}
