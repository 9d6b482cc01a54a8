// The explorer's listings beside bare reads of the same folders; run without arguments, or with the
// options of Google Benchmark. The folders are made under the system's temporary folder, which
// TMPDIR names.
#include "files/explorer/ctl_explorer.h"
#include "files/explorer/explorer_tree.h"
#include "files/explorer/folder_listing.h"
#include "platform/os/paths.h"

#include <QAbstractItemView>
#include <QApplication>
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

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

// Tells when a widget has been painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }

    // Lets events run until it has been painted since the last call.
    void wait()
    {
        while (!std::exchange(m_isPainted, false)) {
            QCoreApplication::processEvents();
        }
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        m_isPainted = m_isPainted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_isPainted = false;
};

// The control on the screen, with one of its views.
class ShownExplorer {
public:
    ShownExplorer(int style, int view, const char* name)
        : m_explorer(nullptr, bagWith(style, view), m_places)
        , m_view(*m_explorer.findChild<QAbstractItemView*>(name))
        , m_watch(*m_view.viewport())
    {
        m_explorer.resize(800, 600);
        m_explorer.show();
        m_watch.wait();
    }

    ctlExplorer& control() { return m_explorer; }
    QAbstractItemView& view() { return m_view; }
    void waitForPaint() { m_watch.wait(); }

private:
    static core::PropertyBag bagWith(int style, int view)
    {
        core::PropertyBag bag;
        bag.write("Style", style, 0);
        bag.write("View", view, 0);
        bag.write("Path", "/proc/self/fdinfo", "");
        return bag;
    }

    NoPlaces m_places;
    ctlExplorer m_explorer;
    QAbstractItemView& m_view;
    PaintWatch m_watch;
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

double aboveNames(const QAbstractItemModel& model, std::size_t bytes)
{
    std::size_t names = 0;
    for (int row = 0; row < model.rowCount(); ++row) {
        names += platform::toNative(model.index(row, 0).data(Qt::EditRole).toString()).size();
    }
    return static_cast<double>(bytes - names) / model.rowCount();
}

// From the path to the painted rows, then the memory of rows, view and pictures: as they are then,
// and when every row has been seen.
void showFiles(benchmark::State& state)
{
    const QString path = platform::fromNative(folders().files());
    ShownExplorer explorer(1, static_cast<int>(state.range(0)), "ListView1");
    const std::size_t before = bytesInUse();
    explorer.control().setPath(path);
    explorer.waitForPaint();
    const QAbstractItemModel& model = *explorer.view().model();
    state.counters["above_names"] = aboveNames(model, bytesInUse() - before);
    for (auto _ : state) {
        explorer.control().setPath(path);
        explorer.waitForPaint();
    }
    for (int row = 0; row < model.rowCount(); ++row) {
        benchmark::DoNotOptimize(model.index(row, 0).data(Qt::DecorationRole));
    }
    state.counters["above_names_all_seen"] = aboveNames(model, bytesInUse() - before);
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

// The same in the view.
void showSubfolders(benchmark::State& state)
{
    ShownExplorer explorer(0, 0, "TreeView1");
    auto& view = static_cast<QTreeView&>(explorer.view());
    const QModelIndex computer = view.model()->index(0, 0, view.model()->index(0, 0));
    const QModelIndex drive = view.model()->index(0, 0, computer);
    for (auto _ : state) {
        view.collapse(drive);
        view.expand(drive);
        explorer.waitForPaint();
    }
    state.counters["rows"] = view.model()->rowCount(drive);
}

BENCHMARK(bareFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(listFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(sortFiles)->DenseRange(0, files::kListColumns - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(showFiles)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(bareSubfolders)->Unit(benchmark::kMillisecond);
BENCHMARK(expandSubfolders)->Unit(benchmark::kMillisecond);
BENCHMARK(showSubfolders)->Unit(benchmark::kMillisecond);

} // namespace

// Without a display of its own where none is named.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
