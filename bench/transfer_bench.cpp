// Times block transfers against what they are measured by:
//
//     transfer_bench [REPETITIONS]
//
// Repaints a window of four megapixels from a source of the same size and from one of a hundred
// megapixels, averages the large one down beside QImage::scaled, and turns one of 24 megapixels
// beside a plain copy of its bytes. Prints the milliseconds of the fastest repetition, which other
// programs disturb least, and the ratio.

#include "platform/pictures/large_image.h"
#include "platform/pictures/transfers.h"

#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

namespace {

int g_repetitions = 9;

double millisecondsOf(const std::function<void()>& work)
{
    work();
    std::vector<double> times;
    for (int i = 0; i < g_repetitions; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        times.push_back(time.count());
    }
    return *std::min_element(times.begin(), times.end());
}

QImage noise(int width, int height)
{
    QImage image = platform::unsetImage({width, height}, QImage::Format_RGB32);
    quint32 value = 1;
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<quint32*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            value = value * 1664525U + 1013904223U;
            row[x] = 0xFF000000U | value >> 8U;
        }
    }
    return image;
}

void report(const char* name, double measured, double reference)
{
    std::printf("%-28s %9.2f ms  reference %9.2f ms  ratio %.2f\n", name, measured, reference,
                measured / reference);
}

double repaint(QImage& window, const QImage& source, int zoom)
{
    const int x = (source.width() - window.width() / zoom) / 2;
    const int y = (source.height() - window.height() / zoom) / 2;
    return millisecondsOf([&] {
        QPainter painter(&window);
        platform::StretchBlt(painter,
                             {-1 % zoom, -1 % zoom, window.width() / zoom * zoom + 2 * zoom,
                              window.height() / zoom * zoom + 2 * zoom},
                             source, {x, y, window.width() / zoom + 2, window.height() / zoom + 2});
    });
}

// What no repaint at zoom 1 can undercut: rows of a large picture lie far apart.
double copyRows(QImage& window, const QImage& source)
{
    const int x = (source.width() - window.width()) / 2;
    const int y = (source.height() - window.height()) / 2;
    return millisecondsOf([&] {
        for (int row = 0; row < window.height(); ++row) {
            std::memcpy(window.scanLine(row), source.constScanLine(y + row) + qsizetype(x) * 4,
                        std::size_t(window.bytesPerLine()));
        }
    });
}

void measureRepaints(const QImage& small, const QImage& large)
{
    QImage window(2400, 1700, QImage::Format_RGB32);
    report("repaint 100 MP / its rows", repaint(window, large, 1), copyRows(window, large));
    for (const double ratio : {1.0, 1.25}) {
        window.setDevicePixelRatio(ratio);
        for (const int zoom : {1, 5}) {
            const double reference = repaint(window, small, zoom);
            std::printf("ratio %.2f zoom %d: ", ratio, zoom);
            report("repaint 100 MP / 4 MP", repaint(window, large, zoom), reference);
        }
    }
}

void measureAverages(const QImage& large)
{
    for (const QSize size :
         {QSize(1600, 1200), QSize(1713, 1199), QSize(160, 112), QSize(9000, 6300)}) {
        const double reference = millisecondsOf([&] {
            const QImage scaled =
                large.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            std::printf("%s", scaled.isNull() ? "failed\n" : "");
        });
        const double measured = millisecondsOf([&] {
            const QImage scaled =
                platform::stretched(large, {0, 0, large.width(), large.height()}, size);
            std::printf("%s", scaled.isNull() ? "failed\n" : "");
        });
        std::printf("%4d x %4d: ", size.width(), size.height());
        report("average / scaled", measured, reference);
    }
}

void measureFlips()
{
    const QImage source = noise(6000, 4000);
    QImage copy = source;
    copy.detach();
    const auto bytes = std::size_t(source.sizeInBytes());
    const double touched =
        millisecondsOf([&] { std::memcpy(copy.bits(), source.constBits(), bytes); });
    const double fresh = millisecondsOf([&] { copy = source.copy(); });
    const platform::Area whole{0, 0, 6000, 4000};
    QImage target = source;
    target.detach();
    const auto onto = [&](platform::Area from) {
        return millisecondsOf([&] { platform::StretchBlt(target, whole, source, from); });
    };
    report("flip V / copy", onto({0, 3999, 6000, -4000}), touched);
    report("flip H / copy", onto({5999, 0, -6000, 4000}), touched);
    const auto onItself = [&](platform::Area from, bool shared) {
        return millisecondsOf([&] {
            const QImage other = shared ? target : QImage();
            platform::StretchBlt(target, whole, target, from);
        });
    };
    report("flip V onto itself / copy", onItself({0, 3999, 6000, -4000}, false), touched);
    report("flip H onto itself / copy", onItself({5999, 0, -6000, 4000}, false), touched);
    report("flip V, shared / new copy", onItself({0, 3999, 6000, -4000}, true), fresh);
    report("flip H, shared / new copy", onItself({5999, 0, -6000, 4000}, true), fresh);
}

} // namespace

int main(int count, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    if (count > 1) {
        g_repetitions = std::max(1, std::atoi(arguments[1]));
    }
    const QImage large = noise(12000, 8400);
    measureRepaints(noise(2430, 1730), large);
    measureAverages(large);
    measureFlips();
    return 0;
}
