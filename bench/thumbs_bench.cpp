// Speed and memory of the thumbnail pages, without a display:
//   thumbs_bench run FOLDER SIZE [LIMIT]     one whole run; pictures a second, memory, bytes of
//   pages thumbs_bench first FOLDER SIZE           folder chosen to first tile painted, against
//   reading the
//                                            folder and decoding its first file
#include "core/constants.h"
#include "platform/os/file_list.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "thumbs/page_viewport.h"
#include "thumbs/picture_fit.h"
#include "thumbs/thumbnail_list.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <vector>

namespace {

constexpr QSize kControl(480, 900);

double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

int runFolder(ThumbNailList& list, const QString& folder)
{
    QElapsedTimer timer;
    timer.start();
    list.setPath(folder);
    list.Makegallery();
    const double ms = milliseconds(timer);
    const int files = list.surface().File1.count();
    std::printf("thumbs_%d %.1f ms pictures=%d per_s=%.1f pages=%d page_mb=%.1f peak_mb=%.1f\n",
                list.ThumbNailSize(), ms, files, files / ms * 1000.0, list.surface().pages.pages(),
                static_cast<double>(list.surface().pages.bitmapBytes()) / 1048576.0,
                peakMegabytes());
    return 0;
}

// Reads the folder and decodes one file, as anybody has to who shows a first tile.
double leastTime(const QString& folder, int size)
{
    QElapsedTimer timer;
    timer.start();
    platform::FileList files;
    files.setPattern(core::kPicturePattern);
    files.setPath(folder);
    const QString first = platform::joinPath(folder, files.name(0));
    const auto picture = platform::loadTilePicture(first, {size, size}, &thumbs::fitPicture);
    return picture ? milliseconds(timer) : 0.0;
}

class PaintWatcher : public QObject {
public:
    PaintWatcher(ThumbNailList& list, const QElapsedTimer& timer)
        : m_list(list)
        , m_timer(timer)
    {
        list.surface().viewport.installEventFilter(this);
    }
    double firstTile = 0.0;

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        const bool painted =
            event->type() == QEvent::Paint && m_list.surface().pages.bitmap(0) != nullptr;
        if (painted && firstTile == 0.0) {
            firstTile = milliseconds(m_timer);
            m_list.surface().state.CancelLoading = true;
        }
        return false;
    }

    ThumbNailList& m_list;
    const QElapsedTimer& m_timer;
};

double firstTileTime(const QString& folder, int size)
{
    ThumbNailList list;
    list.resize(kControl);
    list.setThumbNailSize(size);
    list.setMaxThumbnailpages(1 << 20);
    list.surface().setInfoText(QStringLiteral("The fonts of a program that runs are loaded"));
    list.show();
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    PaintWatcher watcher(list, timer);
    timer.start();
    list.setPath(folder);
    list.Makegallery();
    return watcher.firstTile;
}

int showFirst(const QString& folder, int size)
{
    constexpr int kRounds = 9;
    std::vector<double> least;
    std::vector<double> first;
    for (int round = 0; round <= kRounds; ++round) {
        least.push_back(leastTime(folder, size));
        first.push_back(firstTileTime(folder, size));
    }
    std::sort(least.begin() + 1, least.end()); // the first round fills the caches of the system
    std::sort(first.begin() + 1, first.end());
    const double leastMedian = least[1 + kRounds / 2];
    const double firstMedian = first[1 + kRounds / 2];
    std::printf("first_tile %.2f ms least %.2f ms ratio %.2f (best %.2f, %.2f)\n", firstMedian,
                leastMedian, firstMedian / leastMedian, first[1], least[1]);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: thumbs_bench run|first FOLDER SIZE [LIMIT]\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    platform::initialisePaths();
    const QString folder = platform::fromNative(argv[2]);
    const int size = std::atoi(argv[3]);
    if (QString(argv[1]) == QStringLiteral("first")) {
        return showFirst(folder, size);
    }
    ThumbNailList list;
    list.resize(kControl);
    list.show();
    QCoreApplication::processEvents();
    list.setThumbNailSize(size);
    if (argc > 4) {
        list.setMaxThumbnailpages(std::atoi(argv[4]));
    }
    return runFolder(list, folder);
}
