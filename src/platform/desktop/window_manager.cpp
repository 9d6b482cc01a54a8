#include "platform/desktop/window_manager.h"

#include "platform/desktop/x11_server.h"

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace platform {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

} // namespace

// A window manager is who has the server pass on to it what windows want. The server allows that to
// one client.
bool hasWindowManager()
{
    xcb_connection_t* const server = x11Server();
    if (server == nullptr) {
        return true;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const std::unique_ptr<xcb_get_window_attributes_reply_t, Free> facts(
        xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, root), nullptr));
    return facts == nullptr || (facts->all_event_masks & XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT) != 0;
}

bool isOnWayland()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace platform
