// Albums of pictures of 12 megapixels, without a display:
//
//     albums_bench make FOLDER COUNT      fills FOLDER/pics with so many JPEG files
//     albums_bench run FOLDER             one album of them; pictures a second, peak memory
//     albums_bench compare FOLDER ROUNDS  albums in turns with a bare loop over the same files
//
// Seconds are those of the processor, since other work may go on beside; run tells those of the
// clock. The loop decodes each file with libjpeg-turbo, shrinks it as the program does, and encodes
// and writes a thumbnail and a full picture of the same sizes and quality, into memory that it
// keeps. Albums of classic mode, which go through the working file, are timed beside.

#include "core/config_store.h"
#include "core/constants.h"
#include "core/services.h"
#include "platform/desktop/pump.h"
#include "platform/os/paths.h"
#include "platform/pictures/jpeg_converter.h"
#include "platform/pictures/transfers.h"
#include "publishing/albums/album_run.h"
#include "publishing/albums/windows.h"
#include "thumbs/picture_fit.h"
#include "thumbs/thumbnail_list.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <jpeglib.h>
#include <random>
#include <sys/resource.h>
#include <vector>

namespace {

constexpr QSize kPicture(4000, 3000);
constexpr int kThumbnail = 160;
constexpr int kQuality = 80; // of the setup window, as it starts

class Settings : public core::ConfigStore {
public:
    Settings() { core::services().config = this; }
    [[nodiscard]] QString read(const QString& key) const override
    {
        return classic && key == QStringLiteral("Classic") ? QStringLiteral("1")
                                                           : core::kMissingValue;
    }
    void write(const QString& /*key*/, const QString& /*value*/) override {}
    bool classic = false;
};

// Of the processor, by this process so far.
double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double secondsOf(const std::function<void()>& work)
{
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

// Soft shapes under the grain of a sensor.
QImage photograph()
{
    std::mt19937 random(1);
    QImage image(kPicture, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double wave = 100 + 70 * std::sin(x / 190.0) * std::cos(y / 230.0 + x / 900.0);
            const int grain = static_cast<int>(random() % 13);
            const int tone = static_cast<int>(wave) + grain;
            row[x] = qRgb(tone, (tone * 3 + x / 40) / 4, 200 - tone);
        }
    }
    return image;
}

int makePictures(const QString& folder, int count)
{
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    const QString first = folder + QStringLiteral("/0.jpg");
    if (!platform::saveJpeg(platform::Picture(photograph()), first, 90)) {
        return 1;
    }
    for (int k = 1; k < count; ++k) {
        QFile::copy(first, folder + QStringLiteral("/%1.jpg").arg(k));
    }
    return 0;
}

// One file at a time, in buffers that stay.
class BareLoop {
public:
    void run(const QString& from, const QString& to)
    {
        QDir().mkpath(to);
        for (const QString& name : QDir(from).entryList(QDir::Files)) {
            decode(from + QLatin1Char('/') + name);
            const QSize size = thumbs::fitPicture(m_picture.size(), {kThumbnail, kThumbnail});
            QImage thumbnail(size, QImage::Format_RGB32);
            platform::StretchBlt(thumbnail, {0, 0, size.width(), size.height()}, m_picture,
                                 {0, 0, m_picture.width(), m_picture.height()});
            encode(thumbnail, to + QStringLiteral("/tn_") + name);
            encode(m_picture, to + QLatin1Char('/') + name);
        }
    }

private:
    void decode(const QString& path)
    {
        QFile file(path);
        static_cast<void>(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        jpeg_decompress_struct info{};
        jpeg_error_mgr errors{};
        info.err = jpeg_std_error(&errors);
        jpeg_create_decompress(&info);
        jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(bytes.data()),
                     static_cast<unsigned long>(bytes.size()));
        jpeg_read_header(&info, TRUE);
        info.out_color_space = JCS_EXT_BGRX;
        jpeg_start_decompress(&info);
        const QSize size(static_cast<int>(info.output_width), static_cast<int>(info.output_height));
        if (m_picture.size() != size) {
            m_picture = QImage(size, QImage::Format_RGB32);
        }
        while (info.output_scanline < info.output_height) {
            JSAMPROW row = m_picture.scanLine(static_cast<int>(info.output_scanline));
            jpeg_read_scanlines(&info, &row, 1);
        }
        jpeg_finish_decompress(&info);
        jpeg_destroy_decompress(&info);
    }

    void encode(const QImage& image, const QString& path)
    {
        jpeg_compress_struct info{};
        jpeg_error_mgr errors{};
        info.err = jpeg_std_error(&errors);
        jpeg_create_compress(&info);
        unsigned char* bytes = m_bytes.data();
        unsigned long size = m_bytes.size();
        jpeg_mem_dest(&info, &bytes, &size);
        info.image_width = static_cast<JDIMENSION>(image.width());
        info.image_height = static_cast<JDIMENSION>(image.height());
        info.input_components = 4;
        info.in_color_space = JCS_EXT_BGRX;
        jpeg_set_defaults(&info);
        jpeg_set_quality(&info, kQuality, TRUE);
        jpeg_start_compress(&info, TRUE);
        while (info.next_scanline < info.image_height) {
            JSAMPROW row =
                const_cast<JSAMPROW>(image.constScanLine(static_cast<int>(info.next_scanline)));
            jpeg_write_scanlines(&info, &row, 1);
        }
        jpeg_finish_compress(&info);
        jpeg_destroy_compress(&info);
        QFile file(path);
        static_cast<void>(file.open(QIODevice::WriteOnly));
        file.write(reinterpret_cast<const char*>(bytes), static_cast<qint64>(size));
    }

    QImage m_picture;
    std::vector<unsigned char> m_bytes = std::vector<unsigned char>(std::size_t{16} << 20U);
};

class Albums {
public:
    explicit Albums(const QString& folder)
        : m_folder(folder)
    {
        albums::registerWindows();
        m_list.resize(480, 900);
        m_list.show();
        m_list.setHtml_ThumbnailSize(kThumbnail);
        m_list.setPath(folder + QStringLiteral("/pics"));
        // A program that closes opens no browser.
        QObject::connect(&m_list, &ThumbNailList::HtmLGaleryCreated, &m_list,
                         [] { platform::beginClosing(); });
    }

    [[nodiscard]] int files() { return m_list.surface().File1.count(); }

    void make()
    {
        MakeHtmlGallery(m_list, m_folder + QStringLiteral("/root"));
        platform::resetClosing();
    }

private:
    QString m_folder;
    ThumbNailList m_list;
};

int runOnce(const QString& folder)
{
    Albums albums(folder);
    QElapsedTimer timer;
    timer.start();
    albums.make();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    std::printf("pictures=%d per_s=%.2f peak_mb=%.0f\n", albums.files(), albums.files() / seconds,
                peakMegabytes());
    return 0;
}

void tell(const char* what, std::vector<double> seconds, const std::vector<double>& beside)
{
    std::vector<double> other = beside;
    std::sort(seconds.begin(), seconds.end());
    std::sort(other.begin(), other.end());
    std::printf("%s: fastest %.2f s, median %.2f s; beside the loop %.3f, %.3f\n", what,
                seconds.front(), seconds[seconds.size() / 2], seconds.front() / other.front(),
                seconds[seconds.size() / 2] / other[other.size() / 2]);
}

int compare(const QString& folder, int rounds, Settings& settings)
{
    Albums albums(folder);
    BareLoop loop;
    std::vector<double> ours;
    std::vector<double> classic;
    std::vector<double> bare;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(secondsOf([&] { albums.make(); }));
        bare.push_back(secondsOf(
            [&] { loop.run(folder + QStringLiteral("/pics"), folder + QStringLiteral("/bare")); }));
        settings.classic = true;
        classic.push_back(secondsOf([&] { albums.make(); }));
        settings.classic = false;
    }
    tell("loop", bare, bare);
    tell("album", ours, bare);
    tell("album in classic mode", classic, bare);
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    const QByteArray mode = count > 2 ? arguments[1] : "";
    const int number = count > 3 ? std::atoi(arguments[3]) : 0;
    const bool known = mode == "run" || ((mode == "make" || mode == "compare") && number > 0);
    if (!known) {
        std::fputs("albums_bench make|run|compare FOLDER [NUMBER]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("VISTARA_HOME", home.path().toLocal8Bit());
    QApplication application(count, arguments);
    platform::initialisePaths();
    Settings settings;
    const QString folder = platform::fromNative(arguments[2]);
    if (mode == "make") {
        return makePictures(folder + QStringLiteral("/pics"), number);
    }
    return mode == "run" ? runOnce(folder) : compare(folder, number, settings);
}
