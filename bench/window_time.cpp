// window_time RUNS MIN_WIDTH -- COMMAND ARGS... [-- COMMAND ARGS...]
//
// Milliseconds from starting a command until its main window is on the screen and painted: the first
// window of its that is at least MIN_WIDTH pixels wide and whose middle is no longer the colour of the
// root window. Several commands take turns, so that one run of the tool compares like with like; the
// first is the floor that the ratios refer to. Needs an X server and a window manager. Only processes
// started here are ended.

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kPatience = 30000; // milliseconds
constexpr useconds_t kGlance = 300; // microseconds

int ignoreError(Display* /*display*/, XErrorEvent* /*event*/)
{
    return 0; // windows come and go while they are looked at
}

double sinceMs(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

std::vector<Window> clients(Display* display)
{
    const Atom list = XInternAtom(display, "_NET_CLIENT_LIST", False);
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    std::vector<Window> found;
    if (XGetWindowProperty(display, DefaultRootWindow(display), list, 0, 64, False, XA_WINDOW, &type,
                           &format, &count, &rest, &data) == Success &&
        data != nullptr) {
        const auto* windows = reinterpret_cast<const Window*>(data);
        found.assign(windows, windows + count);
        XFree(data);
    }
    return found;
}

unsigned long middleColour(Display* display, Window window, const XWindowAttributes& size)
{
    XImage* image =
        XGetImage(display, window, size.width / 2, size.height / 2, 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) {
        return 0;
    }
    const unsigned long colour = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return colour & 0xFFFFFFU;
}

bool isPainted(Display* display, int minimumWidth)
{
    for (const Window window : clients(display)) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display, window, &attributes) != 0 &&
            attributes.map_state == IsViewable && attributes.width >= minimumWidth &&
            middleColour(display, window, attributes) != 0) {
            return true;
        }
    }
    return false;
}

double timeOf(Display* display, char** command, int minimumWidth)
{
    const Clock::time_point start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(command[0], command);
        _exit(127);
    }
    while (!isPainted(display, minimumWidth) && sinceMs(start) < kPatience) {
        usleep(kGlance);
    }
    const double taken = sinceMs(start);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (!clients(display).empty() && sinceMs(start) < 2 * kPatience) {
        usleep(10 * kGlance);
    }
    return taken;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<char**> commands;
    for (int i = 3; i < argc; ++i) {
        if (std::string_view(argv[i]) == "--") {
            argv[i] = nullptr;
            commands.push_back(argv + i + 1);
        }
    }
    Display* display = XOpenDisplay(nullptr);
    if (commands.empty() || display == nullptr) {
        std::fprintf(stderr, "usage: window_time RUNS MIN_WIDTH -- COMMAND... [-- COMMAND...]\n");
        return 2;
    }
    XSetErrorHandler(ignoreError);
    const int runs = std::atoi(argv[1]);
    std::vector<std::vector<double>> times(commands.size());
    for (int run = -1; run < runs; ++run) { // the first fills the caches
        for (std::size_t i = 0; i < commands.size(); ++i) {
            const double taken = timeOf(display, commands[i], std::atoi(argv[2]));
            if (run >= 0) {
                times[i].push_back(taken);
            }
        }
    }
    double floor = 0;
    for (std::size_t i = 0; i < commands.size(); ++i) {
        std::sort(times[i].begin(), times[i].end());
        const double median = times[i][times[i].size() / 2];
        floor = i == 0 ? median : floor;
        std::printf("%-40s median %7.1f ms  least %7.1f ms  ratio %.2f\n", commands[i][0], median,
                    times[i].front(), median / floor);
    }
    XCloseDisplay(display);
    return 0;
}
