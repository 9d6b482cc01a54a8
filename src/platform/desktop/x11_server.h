#pragma once

#include <QImage>

struct xcb_connection_t;

namespace platform {

// The X server that the program's windows are on; null on any other display system.
[[nodiscard]] xcb_connection_t* x11Server();

// Whether that server shows its windows on a Wayland desktop.
[[nodiscard]] bool isX11InsideWayland();

// Whether somebody draws the windows onto the screen for the server, perhaps with effects that take
// a while.
[[nodiscard]] bool isX11Composited();

// What the server's screens show, in QImage::Format_RGB32; null without a server or where its
// pixels are of a kind that no screen of today has.
[[nodiscard]] QImage x11RootPicture();

} // namespace platform
