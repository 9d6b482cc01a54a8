#include "platform/desktop/x11_server.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace platform {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

template<typename Reply> using Owned = std::unique_ptr<Reply, Free>;

struct PixelKind {
    std::uint32_t redMask;
    int bits; // that a pixel takes
    QImage::Format format;
};

constexpr std::array kPixelKinds{
    PixelKind{0xFF0000, 32, QImage::Format_RGB32},
    PixelKind{0x3FF00000, 32, QImage::Format_RGB30},
    PixelKind{0x3FF, 32, QImage::Format_BGR30},
    PixelKind{0xF800, 16, QImage::Format_RGB16},
};

const xcb_screen_t& rootScreen(xcb_connection_t* server)
{
    return *xcb_setup_roots_iterator(xcb_get_setup(server)).data;
}

std::uint32_t redMaskOf(const xcb_screen_t& screen)
{
    auto depths = xcb_screen_allowed_depths_iterator(&screen);
    for (; depths.rem != 0; xcb_depth_next(&depths)) {
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; visuals.rem != 0; xcb_visualtype_next(&visuals)) {
            if (visuals.data->visual_id == screen.root_visual) {
                return visuals.data->red_mask;
            }
        }
    }
    return 0;
}

int bitsOfPixel(xcb_connection_t* server, int depth)
{
    auto formats = xcb_setup_pixmap_formats_iterator(xcb_get_setup(server));
    for (; formats.rem != 0; xcb_format_next(&formats)) {
        if (formats.data->depth == depth) {
            return formats.data->bits_per_pixel;
        }
    }
    return 0;
}

const PixelKind* pixelKindOf(xcb_connection_t* server)
{
    const xcb_screen_t& screen = rootScreen(server);
    const std::uint32_t red = redMaskOf(screen);
    const int bits = bitsOfPixel(server, screen.root_depth);
    const auto* const found = std::ranges::find_if(kPixelKinds, [&](const PixelKind& kind) {
        return kind.redMask == red && kind.bits == bits;
    });
    return found == kPixelKinds.end() ? nullptr : found;
}

bool hasOwnByteOrder(xcb_connection_t* server)
{
    const bool lowFirst = xcb_get_setup(server)->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    return lowFirst == (Q_BYTE_ORDER == Q_LITTLE_ENDIAN);
}

// The pixels of the answer, which lives as long as the image.
QImage imageIn(Owned<xcb_get_image_reply_t> reply, QSize size, const PixelKind& kind)
{
    uchar* const bytes = xcb_get_image_data(reply.get());
    constexpr qsizetype kAligned = 4; // bytes, of each row
    const qsizetype words = (qsizetype(size.width()) * kind.bits / 8 + kAligned - 1) / kAligned;
    const qsizetype stride = words * kAligned;
    if (xcb_get_image_data_length(reply.get()) < stride * size.height()) {
        return {};
    }
    return {bytes, size.width(), size.height(), stride, kind.format, &std::free, reply.release()};
}

// The server leaves the byte beside the colours to chance.
QImage opaque(QImage image)
{
    if (image.format() != QImage::Format_RGB32) {
        return image.convertToFormat(QImage::Format_RGB32);
    }
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::for_each(row, row + image.width(), [](QRgb& pixel) { pixel |= 0xFF000000; });
    }
    return image;
}

bool hasExtension(xcb_connection_t* server, std::string_view name)
{
    const Owned<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        server, xcb_query_extension(server, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply != nullptr && reply->present != 0;
}

xcb_atom_t atomOf(xcb_connection_t* server, std::string_view name)
{
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        server, xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply == nullptr ? xcb_atom_t(XCB_ATOM_NONE) : reply->atom;
}

} // namespace

xcb_connection_t* x11Server()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb")) {
        return nullptr;
    }
    const auto* system = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return system != nullptr ? system->connection() : nullptr;
}

bool isX11InsideWayland()
{
    xcb_connection_t* const server = x11Server();
    if (server == nullptr) {
        return false;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    // Older servers tell it by the names of their screens alone.
    return (screen != nullptr && screen->name().startsWith(QLatin1String("XWAYLAND"))) ||
           hasExtension(server, "XWAYLAND");
}

bool isX11Composited()
{
    xcb_connection_t* const server = x11Server();
    if (server == nullptr) {
        return false;
    }
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        server, xcb_get_selection_owner(server, atomOf(server, "_NET_WM_CM_S0")), nullptr));
    return reply != nullptr && reply->owner != XCB_WINDOW_NONE;
}

QImage x11RootPicture()
{
    xcb_connection_t* const server = x11Server();
    const PixelKind* const kind = server != nullptr ? pixelKindOf(server) : nullptr;
    if (kind == nullptr || !hasOwnByteOrder(server)) {
        return {};
    }
    const xcb_window_t root = rootScreen(server).root;
    // The size told at the start may be another one by now.
    const Owned<xcb_get_geometry_reply_t> facts(
        xcb_get_geometry_reply(server, xcb_get_geometry(server, root), nullptr));
    if (facts == nullptr) {
        return {};
    }
    Owned<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(server,
                            xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, root, 0, 0,
                                          facts->width, facts->height, ~std::uint32_t(0)),
                            nullptr));
    if (reply == nullptr) {
        return {};
    }
    return opaque(imageIn(std::move(reply), QSize(facts->width, facts->height), *kind));
}

} // namespace platform
