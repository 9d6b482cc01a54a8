// Times the viewer with a picture of 100 megapixels against one of 4: viewer_bench
//
// What is painted depends on what is visible, so both must cost nearly the same. Each step ends
// with the window painted. Prints microseconds a step (the median) and the ratio; runs offscreen.

#include "platform/paths.h"
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

// Each step ends with the window painted at once, not at the next frame.
double medianMicroseconds(QWidget& window, const std::function<void(int)>& step)
{
    QEvent paintNow(QEvent::UpdateRequest);
    std::vector<double> times;
    for (int i = 0; i < kSteps; ++i) {
        const auto start = std::chrono::steady_clock::now();
        step(i);
        QCoreApplication::sendEvent(&window, &paintNow);
        const std::chrono::duration<double, std::micro> took =
            std::chrono::steady_clock::now() - start;
        times.push_back(took.count());
    }
    std::nth_element(times.begin(), times.begin() + kSteps / 2, times.end());
    return times[kSteps / 2];
}

// A window of a screen's size with the picture in it.
struct Window {
    explicit Window(const platform::Picture& picture)
        : viewer(&host)
    {
        host.resize(1600, 1000);
        viewer.setHost(&host);
        viewer.setGeometry(0, 0, 1600, 1000);
        viewer.setPicture(picture);
        host.show();
        QCoreApplication::processEvents();
    }

    QWidget host;
    cpvPicViewer viewer;
};

double dragPicture(const platform::Picture& picture, int zoom)
{
    Window window(picture);
    window.viewer.setZoomFactor(zoom);
    auto* area = window.viewer.findChild<QWidget*>("iDst");
    sendMouse(area, QEvent::MouseButtonPress, {kHomeX, kHomeY}, Qt::LeftButton);
    return medianMicroseconds(window.host, [area](int i) {
        sendMouse(area, QEvent::MouseMove, {kHomeX + (i % 40) * 3, kHomeY + (i % 30) * 2},
                  Qt::NoButton);
    });
}

double dragInPanView(const platform::Picture& picture)
{
    Window window(picture);
    window.viewer.PanViewShow(15, 15, 3500, 3500, true);
    QCoreApplication::processEvents();
    auto* view = window.host.findChild<frmPanView*>();
    const QPoint middle = view->rect().center();
    sendMouse(view, QEvent::MouseButtonPress, middle, Qt::LeftButton);
    return medianMicroseconds(window.host, [view, middle](int i) {
        sendMouse(view, QEvent::MouseMove, middle + QPoint(i % 11 - 5, i % 7 - 3), Qt::NoButton);
    });
}

double repaintFitted(const platform::Picture& picture)
{
    Window window(picture);
    window.viewer.setBestFitMode(true);
    QCoreApplication::processEvents();
    return medianMicroseconds(window.host, [&window](int) { window.viewer.Refresh(); });
}

void report(const char* what, double smallPicture, double largePicture)
{
    std::printf("%-22s %9.1f us %9.1f us   ratio %.2f\n", what, smallPicture, largePicture,
                largePicture / smallPicture);
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
    report("drag at zoom 1", dragPicture(smallPicture, 1), dragPicture(largePicture, 1));
    report("drag in the pan view", dragInPanView(smallPicture), dragInPanView(largePicture));
    report("repaint, fitted", repaintFitted(smallPicture), repaintFitted(largePicture));
    report("drag at zoom 5", dragPicture(makePicture(kSmallZoomed), 5),
           dragPicture(makePicture(kLargeZoomed), 5));
    return 0;
}
