// The explorer's listings beside bare reads of the same folders; run without arguments, or with the
// options of Google Benchmark. The folders are made under the system's temporary folder, which
// TMPDIR names.
#include "files/explorer/explorer_tree.h"
#include "files/explorer/folder_listing.h"
#include "platform/os/paths.h"

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kFiles = 100'000;
constexpr int kFolders = 5'000;
constexpr int kFilesBesideThem = 3; // in each of the folders, before its subfolder

// The two folders of the benchmarks, removed at the end.
class Folders {
public:
    Folders()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "explorer-XXXXXX").native();
        m_root = ::mkdtemp(pattern.data());
        std::filesystem::create_directory(files());
        for (int i = 0; i < kFiles; ++i) {
            touch(files() + "/IMG_" + std::to_string((i * 7919LL) % kFiles) + ".jpg");
        }
        for (int i = 0; i < kFolders; ++i) {
            const std::string folder = subfolders() + "/Trip " + std::to_string(i);
            std::filesystem::create_directories(folder + "/sub");
            for (int file = 0; file < kFilesBesideThem; ++file) {
                touch(folder + "/" + std::to_string(file) + ".jpg");
            }
        }
    }
    ~Folders() { std::filesystem::remove_all(m_root); }
    Folders(const Folders&) = delete;
    Folders& operator=(const Folders&) = delete;

    [[nodiscard]] std::string files() const { return m_root + "/files"; }
    [[nodiscard]] std::string subfolders() const { return m_root + "/folders"; }

private:
    static void touch(const std::string& path) { std::ofstream file(path); }

    std::string m_root;
};

const Folders& folders()
{
    static const Folders made;
    return made;
}

class NoPlaces : public files::Places {
public:
    [[nodiscard]] std::vector<platform::Drive> drives() const override
    {
        return {{platform::fromNative(folders().subfolders())}};
    }
    [[nodiscard]] QString favorites() const override { return {}; }
    [[nodiscard]] QString documents() const override { return {}; }
    [[nodiscard]] QString network() const override { return {}; }
    [[nodiscard]] std::vector<platform::MenuItem> applets() const override { return {}; }
};

class NoEvents : public files::PopulationEvents {
public:
    void Change() override {}
    void FolderExpand(const QString& /*key*/) override {}
    void FolderCollapse(const QString& /*key*/) override {}
    void Progress(std::int16_t /*percent*/) override {}
    void RootExpand(std::int16_t /*rootType*/) override {}
    void RootCollapse(std::int16_t /*rootType*/) override {}
};

std::size_t bytesInUse()
{
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

// Calls take(folder, entry) for each entry but "." and "..".
template<typename Take> void readBare(const std::string& path, Take take)
{
    DIR* const folder = ::opendir(path.c_str());
    while (const dirent* const entry = ::readdir(folder)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            take(folder, *entry);
        }
    }
    ::closedir(folder);
}

void bareFiles(benchmark::State& state)
{
    const std::string path = folders().files();
    for (auto _ : state) {
        readBare(path, [](DIR* folder, const dirent& entry) {
            struct statx facts = {};
            ::statx(::dirfd(folder), entry.d_name, 0, STATX_BASIC_STATS | STATX_BTIME, &facts);
            benchmark::DoNotOptimize(facts);
        });
    }
}

void listFiles(benchmark::State& state)
{
    const files::FolderRequest request = {platform::fromNative(folders().files())};
    for (auto _ : state) {
        const files::ListRows rows = files::listFolder(request, [](std::int16_t) {});
        benchmark::DoNotOptimize(rows.columnText(0, files::ListColumn::Modified));
    }
    const std::size_t before = bytesInUse();
    const files::ListRows rows = files::listFolder(request, [](std::int16_t) {});
    state.counters["bytes_per_entry"] = static_cast<double>(bytesInUse() - before) / rows.count();
    state.counters["above_names"] = static_cast<double>(rows.overhead()) / rows.count();
}

void sortFiles(benchmark::State& state)
{
    files::ListRows rows =
        files::listFolder({platform::fromNative(folders().files())}, [](std::int16_t) {});
    auto order = files::SortOrder::Descending;
    for (auto _ : state) {
        rows.sort(static_cast<files::ListColumn>(state.range(0)), order);
        order = order == files::SortOrder::Ascending ? files::SortOrder::Descending
                                                     : files::SortOrder::Ascending;
    }
}

// One look into each subfolder, up to the first folder in it.
void bareSubfolders(benchmark::State& state)
{
    const std::string path = folders().subfolders();
    for (auto _ : state) {
        readBare(path, [](DIR* folder, const dirent& entry) {
            const int inside = ::openat(::dirfd(folder), entry.d_name, O_RDONLY | O_DIRECTORY);
            DIR* const subfolder = ::fdopendir(inside);
            bool found = false;
            while (const dirent* const one = found ? nullptr : ::readdir(subfolder)) {
                found = one->d_type == DT_DIR && one->d_name[0] != '.';
            }
            benchmark::DoNotOptimize(found);
            ::closedir(subfolder);
        });
    }
}

void expandSubfolders(benchmark::State& state)
{
    const NoPlaces places;
    NoEvents events;
    files::ExplorerTree tree(places, events);
    tree.LoadTreeRoots({}, {true, true, true, true});
    files::TreeNode& drive = *tree.nodeAt(3);
    const std::size_t before = bytesInUse();
    tree.expand(drive);
    state.counters["bytes_per_entry"] =
        static_cast<double>(bytesInUse() - before) / static_cast<double>(drive.children.size());
    for (auto _ : state) {
        tree.collapse(drive);
        tree.expand(drive);
    }
}

BENCHMARK(bareFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(listFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(sortFiles)->DenseRange(0, files::kListColumns - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(bareSubfolders)->Unit(benchmark::kMillisecond);
BENCHMARK(expandSubfolders)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
