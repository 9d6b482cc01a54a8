// Times a screen capture on an X display: capture_bench
//
// From the command until the frozen screen stands there, painted and taken over by the server,
// beside a bare grab of the root window in the same run (medians). A window of the program that has
// to leave the screen first adds the time that others get to paint what it covered. capture.sh runs
// it on a virtual display of 2560 x 1440 with a window manager.

#include "acquire/capture_start.h"
#include "acquire/frozen_pane.h"
#include "acquire/windows.h"
#include "core/window_registry.h"
#include "platform/desktop/x11_server.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>
#include <xcb/xcb.h>

namespace {

constexpr int kRounds = 15;
constexpr int kRest = 150; // milliseconds, for the window manager to take a window away

xcb_window_t rootWindow()
{
    return xcb_setup_roots_iterator(xcb_get_setup(platform::x11Server())).data->root;
}

// Comes back once the server has done all that it was asked for.
void waitForServer()
{
    xcb_connection_t* const server = platform::x11Server();
    std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

void grabRoot()
{
    xcb_connection_t* const server = platform::x11Server();
    const QSize size = QGuiApplication::primaryScreen()->size();
    std::free(xcb_get_image_reply(server,
                                  xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, rootWindow(), 0,
                                                0, static_cast<std::uint16_t>(size.width()),
                                                static_cast<std::uint16_t>(size.height()),
                                                ~std::uint32_t(0)),
                                  nullptr));
}

acquire::FrozenPane* pane()
{
    const QWidget* window = core::windows().find(core::Window::frmCapture);
    return window == nullptr ? nullptr : window->findChild<acquire::FrozenPane*>();
}

// The pane tells when it is painted as a whole; what it painted goes to the server after that.
void capture()
{
    acquire::startCapture();
    bool painted = false;
    QObject::connect(pane(), &acquire::FrozenPane::painting, pane(), [&] { painted = true; });
    const QSize whole = QGuiApplication::primaryScreen()->size();
    while (!painted || pane()->size() != whole) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    waitForServer();
}

void rest()
{
    core::windows().unload(core::Window::frmCapture);
    QEventLoop loop;
    QTimer::singleShot(kRest, &loop, &QEventLoop::quit);
    loop.exec();
}

double medianMilliseconds(const std::function<void()>& work, const std::function<void()>& between)
{
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        times.push_back(took.count());
        between();
    }
    std::ranges::nth_element(times, times.begin() + kRounds / 2);
    return times[kRounds / 2];
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    acquire::registerWindows();
    const double bare = medianMilliseconds(grabRoot, [] {});
    const double frozen = medianMilliseconds(capture, rest);
    std::printf("bare grab %.1f ms, frozen screen shown %.1f ms, ratio %.2f\n", bare, frozen,
                frozen / bare);
}
