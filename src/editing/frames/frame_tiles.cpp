#include "editing/frames/frame_tiles.h"

#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/transfers.h"

#include <utility>

namespace frames {

namespace {

constexpr int kStyleLength = 2;

// In the order of the tiles.
constexpr std::array<const char*, kTiles> kStems{
    "plastic-left", "plastic-right", "plastic-top", "plastic-bottom",
    "plastic-lt",   "plastic-rt",    "plastic-lb",  "plastic-rb",
};

QString tileFile(Tile tile, const QString& style)
{
    const QString stem = QString::fromLatin1(kStems[static_cast<std::size_t>(tile)]);
    return platform::appFile(QStringLiteral("Frame/FrameLib/%1").arg(stem) + style +
                             QStringLiteral(".jpg"));
}

QImage readTile(const QString& path, int side)
{
    const auto picture = platform::loadPicture(path);
    if (!picture) {
        return {};
    }
    const QImage whole = picture->flattened();
    return platform::stretched(whole, {0, 0, whole.width(), whole.height()}, {side, side});
}

} // namespace

QString stylesFolder()
{
    return platform::appFile(QStringLiteral("Frame"));
}

QString styleOf(const QString& picturePath)
{
    QString style = platform::fileNameOf(picturePath).left(kStyleLength);
    while (style.startsWith(QLatin1Char(' '))) {
        style.remove(0, 1);
    }
    return style;
}

FrameTiles::FrameTiles(QString style, int side)
    : m_style(std::move(style))
    , m_side(side)
{
}

const QImage& FrameTiles::at(Tile tile)
{
    Entry& entry = m_entries[static_cast<std::size_t>(tile)];
    if (!entry.wasRead) {
        entry = {true, readTile(tileFile(tile, m_style), m_side)};
    }
    return entry.image;
}

} // namespace frames
