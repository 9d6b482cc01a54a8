// Prints the pictures of a folder as contact sheets into a PDF file, without a display:
//
//     sheet_bench run FOLDER PDF              once; pictures a second, peak memory, bytes written
//     sheet_bench compare FOLDER PDF ROUNDS   in turns with a bare loop over the same files
//
// `albums_bench make` makes such a folder. Seconds are those of the processor, since other work may
// go on beside; run tells those of the clock. The loop loads each file as a tile of the size that
// it has on paper, brings it to exactly that, and compresses it as the PDF does.

#include "core/config_store.h"
#include "core/constants.h"
#include "core/services.h"
#include "platform/devices/printers.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/transfers.h"
#include "publishing/printing/contact_sheets.h"
#include "publishing/printing/sheet_layout.h"
#include "thumbs/picture_fit.h"
#include "thumbs/thumbnail_list.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <sys/resource.h>
#include <vector>

namespace {

// The product's own settings, all as they start.
class Settings : public core::ConfigStore {
public:
    Settings() { core::services().config = this; }
    [[nodiscard]] QString read(const QString& /*key*/) const override
    {
        return core::kMissingValue;
    }
    void write(const QString& /*key*/, const QString& /*value*/) override {}
};

double secondsOf(const std::function<void()>& work)
{
    const auto processor = [] {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    };
    const double start = processor();
    work();
    return processor() - start;
}

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

class Sheets {
public:
    Sheets(const QString& folder, const QString& pdf)
    {
        platform::printers().select(platform::printers().openPdf(
            QStringLiteral("PDF"), {[pdf](const QString& /*title*/) { return pdf; }, {}}));
        m_list.resize(480, 900);
        m_list.show();
        m_list.setPrintLayout(
            [this](ThumbNailList& list) { m_isWhole = printing::makeContactSheets(list); });
        m_list.setPath(folder);
    }

    // False when not all of it was written.
    bool print()
    {
        m_list.PrintPicture();
        return m_isWhole;
    }

    [[nodiscard]] int files() { return m_list.surface().File1.count(); }
    [[nodiscard]] int sheets() { return m_list.surface().pages.pages(); }

    // Once they were printed: the room of a picture, in pixels of the document.
    [[nodiscard]] QSize room()
    {
        const thumbs::GalleryState& state = m_list.surface().state;
        const auto paper = platform::printers().selected()->metrics();
        const printing::SheetLayout layout = printing::layOutSheet(
            {state.PageWidthNow, state.PageHeightNow}, m_list.Print_Zoomfactor(),
            m_list.Print_NrThumbCols(), m_list.surface().viewportSize().width());
        const QRectF cell(QPointF(), printing::pictureRoom(layout));
        return printing::pixelsWorthPrinting(printing::onPaper(cell, layout.sheet, paper).size(),
                                             paper);
    }

private:
    ThumbNailList m_list;
    bool m_isWhole = false;
};

QImage tile(const QString& path, QSize room)
{
    const auto loaded = platform::loadTilePicture(path, room, &thumbs::fitPicture);
    if (!loaded) {
        return {};
    }
    const QImage image = loaded->picture.image();
    return platform::stretched(image, {0, 0, image.width(), image.height()},
                               thumbs::fitPicture(loaded->naturalSize, room));
}

void tilesAlone(const QString& folder, QSize room)
{
    constexpr int kPdfQuality = 94; // the toolkit's
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
        QBuffer bytes;
        bytes.open(QIODevice::WriteOnly);
        static_cast<void>(tile(file.filePath(), room).save(&bytes, "JPG", kPdfQuality));
    }
}

double median(std::vector<double> seconds)
{
    std::sort(seconds.begin(), seconds.end());
    return seconds[seconds.size() / 2];
}

double fastest(const std::vector<double>& seconds)
{
    return *std::min_element(seconds.begin(), seconds.end());
}

int runOnce(const QString& folder, const QString& pdf)
{
    Sheets sheets(folder, pdf);
    QElapsedTimer timer;
    timer.start();
    const bool isWhole = sheets.print();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    std::printf("pictures=%d sheets=%d per_s=%.1f peak_mb=%.0f pdf_mb=%.1f\n", sheets.files(),
                sheets.sheets(), sheets.files() / seconds, peakMegabytes(),
                static_cast<double>(QFileInfo(pdf).size()) / 1e6);
    return isWhole ? 0 : 1;
}

int compare(const QString& folder, const QString& pdf, int rounds)
{
    Sheets sheets(folder, pdf);
    std::vector<double> ours;
    std::vector<double> bare;
    for (int round = 0; round < rounds; ++round) {
        bool isWhole = false;
        ours.push_back(secondsOf([&] { isWhole = sheets.print(); }));
        bare.push_back(secondsOf([&] { tilesAlone(folder, sheets.room()); }));
        if (!isWhole) {
            return 1;
        }
    }
    std::printf("room %d x %d; sheets %.2f s, tiles and compression %.2f s, fastest\n",
                sheets.room().width(), sheets.room().height(), fastest(ours), fastest(bare));
    std::printf("beside the loop: fastest %.3f, median %.3f\n", fastest(ours) / fastest(bare),
                median(ours) / median(bare));
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    const QByteArray mode = count > 3 ? arguments[1] : "";
    const int rounds = count > 4 ? std::atoi(arguments[4]) : 0;
    if (mode != "run" && !(mode == "compare" && rounds > 0)) {
        std::fputs("sheet_bench run|compare FOLDER PDF [ROUNDS]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("VISTARA_HOME", home.path().toLocal8Bit());
    const QApplication application(count, arguments);
    platform::initialisePaths();
    const Settings settings;
    const QString folder = platform::fromNative(arguments[2]);
    const QString pdf = platform::fromNative(arguments[3]);
    return mode == "run" ? runOnce(folder, pdf) : compare(folder, pdf, rounds);
}
