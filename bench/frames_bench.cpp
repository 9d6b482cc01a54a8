// Lays a frame of thickness 20 around a picture of 24 megapixels, as the Apply button of FrmBord
// does, with the working files on the disk of the temporary folder:
//
//     frames_bench PROGRAM_FOLDER
//
// The folder is the one with the delivered frames, build/PRESET/vistara. Prints the fastest of some
// rounds beside one copy of the picture and the writing of its two files, in the same rounds.

#include "core/working_files.h"
#include "editing/frames/frame_composer.h"
#include "editing/frames/frame_tiles.h"
#include "platform/os/paths.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

constexpr int kRounds = 7;
constexpr int kThickness = 20;
constexpr QSize kSize(6000, 4000);
constexpr double kNanoseconds = 1e6; // in a millisecond

using core::WorkingFile;

void require(bool done)
{
    if (!done) {
        std::fputs("A file can't be read or written.\n", stderr);
        std::exit(1);
    }
}

QImage somePicture()
{
    QImage image(kSize, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            row[x] = qRgb(x & 255, y & 255, (x * y) & 255);
        }
    }
    return image;
}

void frame(const platform::Picture& picture)
{
    QImage framed = picture.flattened();
    frames::FrameTiles tiles(QStringLiteral("03"), kThickness);
    require(frames::drawFrame(framed, frames::finalMeasures(kThickness), tiles) ==
            frames::Composed::Whole);
    require(core::saveAs(WorkingFile::BeforeEdit, picture));
    require(core::writtenAs(WorkingFile::Picture, platform::Picture(framed)).has_value());
}

void copyAndWrite(const platform::Picture& picture)
{
    const platform::Picture copy(picture.image().copy());
    require(core::saveAs(WorkingFile::BeforeEdit, picture));
    require(core::saveAs(WorkingFile::Picture, copy));
}

double milliseconds(void (*work)(const platform::Picture&), const platform::Picture& picture)
{
    QElapsedTimer time;
    time.start();
    work(picture);
    return double(time.nsecsElapsed()) / kNanoseconds;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fputs("frames_bench PROGRAM_FOLDER\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("VISTARA_HOME", home.path().toLocal8Bit());
    const QGuiApplication application(count, arguments);
    const QDir program(QString::fromLocal8Bit(arguments[1]));
    require(QFile::link(program.absoluteFilePath(QStringLiteral("Frame")),
                        home.filePath(QStringLiteral("Frame"))));
    platform::initialisePaths();
    const platform::Picture picture(somePicture());
    double framed = std::numeric_limits<double>::max();
    double bare = framed;
    for (int round = 0; round < kRounds; ++round) {
        bare = std::min(bare, milliseconds(&copyAndWrite, picture));
        framed = std::min(framed, milliseconds(&frame, picture));
    }
    std::printf("frame %.1f ms, copy and two files %.1f ms, ratio %.2f\n", framed, bare,
                framed / bare);
    return 0;
}
