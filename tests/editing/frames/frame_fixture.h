#pragma once

#include "core/state.h"
#include "core/window_registry.h"
#include "editing/frames/windows.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"
#include "platform/pictures/test_images.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QPainter>
#include <QTest>
#include <array>
#include <string>

// Frames whose every tile has a colour of its own.
namespace frametest {

struct PlainTile {
    const char* stem;
    QRgb colour;
};

enum { Left, Right, Top, Bottom, LeftTop, RightTop, LeftBottom, RightBottom };

inline constexpr std::array kPlainTiles{
    PlainTile{"plastic-left", 0xFF100000}, PlainTile{"plastic-right", 0xFF200000},
    PlainTile{"plastic-top", 0xFF300000},  PlainTile{"plastic-bottom", 0xFF400000},
    PlainTile{"plastic-lt", 0xFF005000},   PlainTile{"plastic-rt", 0xFF006000},
    PlainTile{"plastic-lb", 0xFF007000},   PlainTile{"plastic-rb", 0xFF008000},
};

inline QRgb colourOf(int tile)
{
    return kPlainTiles[static_cast<std::size_t>(tile)].colour;
}

inline std::string tileName(int tile, const std::string& style)
{
    return "app/Frame/FrameLib/" + std::string(kPlainTiles[static_cast<std::size_t>(tile)].stem) +
           style + ".jpg";
}

// The loader goes by content, so these may be bitmaps.
inline void save(const QImage& image, const QString& path)
{
    EXPECT_TRUE(platform::savePicture(platform::Picture(image), path)) << path.toStdString();
}

// A style with its picture and its tiles.
inline void addStyle(const support::TempTree& tree, const std::string& picture,
                     const std::string& style)
{
    tree.add({"app/Frame/FrameLib/"});
    save(test::filled(40, 30, 0xFF808080), tree.path("app/Frame/" + picture));
    for (int tile = Left; tile <= RightBottom; ++tile) {
        save(test::filled(70, 70, colourOf(tile)), tree.path(tileName(tile, style)));
    }
}

// What a frame of such tiles looks like on a picture.
inline QImage framed(QImage picture, int thickness, int margin)
{
    const int right = picture.width() - thickness - margin;
    const int bottom = picture.height() - thickness - margin;
    QPainter painter(&picture);
    const auto fill = [&](int x, int y, int width, int height, int tile) {
        painter.fillRect(x, y, width, height, QColor::fromRgb(colourOf(tile)));
    };
    fill(0, 0, thickness, picture.height(), Left);
    fill(right, 0, thickness, picture.height(), Right);
    fill(0, bottom, picture.width(), thickness, Bottom);
    fill(0, 0, picture.width(), thickness, Top);
    fill(0, 0, thickness, thickness, LeftTop);
    fill(right, 0, thickness, thickness, RightTop);
    fill(0, bottom, thickness, thickness, LeftBottom);
    fill(right, bottom, thickness, thickness, RightBottom);
    return picture;
}

} // namespace frametest
