// Scans of the scanner library's test device, beside scanimage writing PNM into a file:
//     scan_bench HELPER [ROUNDS]
// HELPER is the program vistara-scan. Both begin with a process of their own and end with the last
// row: in a file there, as an image of 8 bits a sample here. Prints the times of the fastest rounds
// and their ratio.

#include "platform/devices/helper_scanners.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using platform::ScanRole;

constexpr int kResolution = 1200;
constexpr int kSide = 200; // millimetres

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::exit(EXIT_FAILURE);
    }
}

void configure(const QString& folder)
{
    write(folder + "/dll.conf", "test\n");
    write(folder + "/test.conf", "number_of_devices 1\n"
                                 "depth 8\n"
                                 "resolution_min 1.0\nresolution_max 1200.0\nresolution_quant 1.0\n"
                                 "geometry_min 0.0\ngeometry_max 200.0\ngeometry_quant 1.0\n"
                                 "test-picture \"Color pattern\"\n");
    qputenv("SANE_CONFIG_DIR", folder.toLocal8Bit());
}

double secondsOfScanimage(const char* mode, const QString& output)
{
    QProcess process;
    process.setStandardOutputFile(output);
    QElapsedTimer timer;
    timer.start();
    process.start("scanimage", {"-d", "test:0", "--format=pnm", "--mode", mode, "--resolution",
                                QString::number(kResolution), "-x", QString::number(kSide), "-y",
                                QString::number(kSide)});
    if (!process.waitForFinished() || process.exitCode() != 0) {
        std::fprintf(stderr, "scanimage failed\n");
        std::exit(EXIT_FAILURE);
    }
    return double(timer.nsecsElapsed()) / 1e9;
}

double secondsOfOurs(const char* mode, const QString& helper)
{
    platform::HelperScanners scanners(helper);
    QObject owner;
    QEventLoop loop;
    QImage image;
    QElapsedTimer timer;
    timer.start();
    platform::ScannerSession* session = scanners.open("test:0", &owner);
    QObject::connect(session, &platform::ScannerSession::scanned, &loop, [&](const QImage& page) {
        image = page;
        loop.quit();
    });
    QObject::connect(session, &platform::ScannerSession::failed, &loop, &QEventLoop::quit);
    session->set(ScanRole::Mode, {mode, 0});
    session->set(ScanRole::Resolution, {{}, kResolution});
    session->set(ScanRole::Right, {{}, kSide});
    session->set(ScanRole::Bottom, {{}, kSide});
    session->scan(platform::ScanKind::Picture);
    loop.exec();
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    if (image.isNull()) {
        std::fprintf(stderr, "the scan failed\n");
        std::exit(EXIT_FAILURE);
    }
    return seconds;
}

} // namespace

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    if (count < 2) {
        std::fprintf(stderr, "usage: scan_bench HELPER [ROUNDS]\n");
        return EXIT_FAILURE;
    }
    const int rounds = count > 2 ? std::atoi(arguments[2]) : 9;
    const QTemporaryDir folder;
    configure(folder.path());
    for (const char* mode : {"Gray", "Color"}) {
        double theirs = 1e9;
        double ours = 1e9;
        for (int round = 0; round < rounds; ++round) {
            theirs = std::min(theirs, secondsOfScanimage(mode, folder.filePath("page.pnm")));
            ours = std::min(ours, secondsOfOurs(mode, QString::fromLocal8Bit(arguments[1])));
        }
        std::printf("%s: %.1f ms, scanimage %.1f ms, ratio %.2f\n", mode, ours * 1e3, theirs * 1e3,
                    ours / theirs);
    }
    return EXIT_SUCCESS;
}
