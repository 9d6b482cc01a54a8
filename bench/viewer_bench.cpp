// Times the viewer with a picture of 100 megapixels against one of 4: viewer_bench
//
// What is painted depends on what is visible, so both must cost nearly the same. Each step ends
// with the window painted. Prints microseconds a step (the median) and the ratio; runs offscreen.

#include "platform/os/paths.h"
#include "viewer/pan_view_window.h"
#include "viewer/picture_viewer.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr QSize kSmall(2000, 2000);
constexpr QSize kLarge(10000, 10000);
// At zoom 5 no side may be longer than 6553 pixels.
constexpr QSize kSmallZoomed(2000, 2000);
constexpr QSize kLargeZoomed(6500, 6500);
constexpr int kSteps = 400;
constexpr int kHomeX = 600;
constexpr int kHomeY = 400;

platform::Picture makePicture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            row[x] = qRgb(x, y, x ^ y);
        }
    }
    return platform::Picture(image);
}

void sendMouse(QWidget* target, QEvent::Type type, QPoint place, Qt::MouseButton button)
{
    QMouseEvent event(type, place, target->mapToGlobal(place), button, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

// A window of a screen's size with the picture in it, and something that is done there step by
// step.
class Bench {
public:
    explicit Bench(const platform::Picture& picture)
        : viewer(&host)
    {
        host.resize(1600, 1000);
        viewer.setHost(&host);
        viewer.setGeometry(0, 0, 1600, 1000);
        viewer.setPicture(picture);
        host.show();
        QCoreApplication::processEvents();
    }

    // Each step ends with the window painted at once, not at the next frame.
    double stepMicroseconds(int number)
    {
        QEvent paintNow(QEvent::UpdateRequest);
        const auto start = std::chrono::steady_clock::now();
        step(number);
        QCoreApplication::sendEvent(&host, &paintNow);
        const std::chrono::duration<double, std::micro> took =
            std::chrono::steady_clock::now() - start;
        return took.count();
    }

    QWidget host;
    cpvPicViewer viewer;
    std::function<void(int)> step;
};

using Preparation = std::function<void(Bench&)>;

Preparation dragPicture(int zoom)
{
    return [zoom](Bench& bench) {
        bench.viewer.setZoomFactor(zoom);
        auto* area = bench.viewer.findChild<QWidget*>("iDst");
        sendMouse(area, QEvent::MouseButtonPress, {kHomeX, kHomeY}, Qt::LeftButton);
        bench.step = [area](int i) {
            sendMouse(area, QEvent::MouseMove, {kHomeX + (i % 40) * 3, kHomeY + (i % 30) * 2},
                      Qt::NoButton);
        };
    };
}

void dragInPanView(Bench& bench)
{
    bench.viewer.PanViewShow(15, 15, 3500, 3500, true);
    QCoreApplication::processEvents();
    auto* view = bench.host.findChild<frmPanView*>();
    const QPoint middle = view->rect().center();
    sendMouse(view, QEvent::MouseButtonPress, middle, Qt::LeftButton);
    bench.step = [view, middle](int i) {
        sendMouse(view, QEvent::MouseMove, middle + QPoint(i % 11 - 5, i % 7 - 3), Qt::NoButton);
    };
}

void repaintFitted(Bench& bench)
{
    bench.viewer.setBestFitMode(true);
    QCoreApplication::processEvents();
    bench.step = [&bench](int) { bench.viewer.Refresh(); };
}

double median(std::vector<double>& values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Steps with the two pictures take turns, so that a busy machine slows both.
void compare(const char* what, const platform::Picture& smallPicture,
             const platform::Picture& largePicture, const Preparation& prepare)
{
    Bench smallBench(smallPicture);
    Bench largeBench(largePicture);
    prepare(smallBench);
    prepare(largeBench);
    std::vector<double> smallTimes;
    std::vector<double> largeTimes;
    for (int i = 0; i < kSteps; ++i) {
        const bool smallFirst = i % 2 == 0;
        if (smallFirst) {
            smallTimes.push_back(smallBench.stepMicroseconds(i));
        }
        largeTimes.push_back(largeBench.stepMicroseconds(i));
        if (!smallFirst) {
            smallTimes.push_back(smallBench.stepMicroseconds(i));
        }
    }
    const double smallStep = median(smallTimes);
    const double largeStep = median(largeTimes);
    std::printf("%-22s %9.1f us %9.1f us   ratio %.2f\n", what, smallStep, largeStep,
                largeStep / smallStep);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir programFolder;
    qputenv("VISTARA_HOME", programFolder.path().toLocal8Bit());
    platform::initialisePaths();
    const QApplication application(argc, argv);
    const platform::Picture smallPicture = makePicture(kSmall);
    const platform::Picture largePicture = makePicture(kLarge);
    compare("drag at zoom 1", smallPicture, largePicture, dragPicture(1));
    compare("drag in the pan view", smallPicture, largePicture, dragInPanView);
    compare("repaint, fitted", smallPicture, largePicture, repaintFitted);
    compare("drag at zoom 5", makePicture(kSmallZoomed), makePicture(kLargeZoomed), dragPicture(5));
    return 0;
}
