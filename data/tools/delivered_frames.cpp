#include "delivered_frames.h"

#include "delivered_art.h"
#include "files.h"
#include "frame_mouldings.h"
#include "scenes.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace tools {

namespace {

constexpr int kTileSide = 140; // four times the thickest frame
constexpr int kJpegQuality = 96;
constexpr double kNone = 9; // beyond the other edge of any tile

enum class Side { Near, Far, Neither }; // left or top, right or bottom

struct FrameTile {
    const char* stem;
    Side horizontal;
    Side vertical;
};

constexpr std::array kTiles{FrameTile{"plastic-left", Side::Near, Side::Neither},
                            FrameTile{"plastic-right", Side::Far, Side::Neither},
                            FrameTile{"plastic-top", Side::Neither, Side::Near},
                            FrameTile{"plastic-bottom", Side::Neither, Side::Far},
                            FrameTile{"plastic-lt", Side::Near, Side::Near},
                            FrameTile{"plastic-rt", Side::Far, Side::Near},
                            FrameTile{"plastic-lb", Side::Near, Side::Far},
                            FrameTile{"plastic-rb", Side::Far, Side::Far}};

double fromEdge(Side side, double place)
{
    return side == Side::Neither ? kNone : side == Side::Near ? place : 1 - place;
}

// At a corner the two sides meet on the diagonal.
FrameSurface surfaceAt(const Moulding& moulding, const FrameTile& tile, double x, double y)
{
    const double fromSide = fromEdge(tile.horizontal, x);
    const double fromEnd = fromEdge(tile.vertical, y);
    const double across = std::clamp(std::min(fromSide, fromEnd), 0.0, 1.0);
    const bool isCorner = tile.horizontal != Side::Neither && tile.vertical != Side::Neither;
    const double along = isCorner && moulding.plainCorners ? 0 : fromEnd < fromSide ? x : y;
    return moulding.at(across, along - std::floor(along));
}

struct Vector {
    double x, y, z;

    [[nodiscard]] Vector unit() const
    {
        const double length = std::hypot(x, y, z);
        return {x / length, y / length, z / length};
    }
    [[nodiscard]] double times(const Vector& other) const
    {
        return x * other.x + y * other.y + z * other.z;
    }
};

// From the surface to the lamp, which hangs to the left above the picture.
const Vector kLamp = Vector{-0.42, -0.62, 0.9}.unit();
const Vector kGlint = Vector{kLamp.x, kLamp.y, kLamp.z + 1}.unit();

Vector normalAt(const Moulding& moulding, const FrameTile& tile, double x, double y)
{
    constexpr double kStep = 0.5 / kTileSide;
    const auto height = [&](double atX, double atY) {
        return surfaceAt(moulding, tile, atX, atY).height;
    };
    return Vector{(height(x - kStep, y) - height(x + kStep, y)) / (2 * kStep),
                  (height(x, y - kStep) - height(x, y + kStep)) / (2 * kStep), 1}
        .unit();
}

// Darker where the frame ends, inside and outside, and in the cut of its corners.
double seams(const FrameTile& tile, double x, double y)
{
    const double fromSide = fromEdge(tile.horizontal, x);
    const double fromEnd = fromEdge(tile.vertical, y);
    const double across = std::min(fromSide, fromEnd);
    const double ends = 0.5 * smooth(0.95, 1, across) + 0.3 * (1 - smooth(0, 0.035, across));
    const double cut = 0.22 * (1 - smooth(0, 0.018, std::abs(fromSide - fromEnd)));
    return std::max(ends, cut);
}

Tint litColour(const Moulding& moulding, const FrameTile& tile, double x, double y)
{
    const FrameSurface surface = surfaceAt(moulding, tile, x, y);
    const Vector normal = normalAt(moulding, tile, x, y);
    const double light = std::max(0.0, normal.times(kLamp)) / kLamp.z;
    const double glint = std::pow(std::max(0.0, normal.times(kGlint)), 22);
    const double flat = std::pow(kGlint.z, 22); // what doesn't lean shows its plain colour
    const double shine = surface.gloss * std::max(0.0, glint - flat);
    const Tint lit = surface.colour * (0.34 + 0.66 * light) + Tint{1, 1, 1} * shine;
    return lit * (1 - seams(tile, x, y));
}

QImage drawTile(const Moulding& moulding, const FrameTile& tile)
{
    return painted(kTileSide, kTileSide, [&](int x, int y) {
        return litColour(moulding, tile, (x + 0.5) / kTileSide, (y + 0.5) / kTileSide);
    });
}

std::string identifier(const Moulding& moulding)
{
    return std::string(moulding.name).substr(0, 2);
}

// The tiles in their order, around a picture.
QImage framed(const QImage& picture, const std::array<QImage, kTiles.size()>& tiles, int thickness)
{
    QImage image = picture;
    QPainter painter(&image);
    const int right = image.width() - thickness;
    const int bottom = image.height() - thickness;
    for (std::size_t i = 0; i < kTiles.size(); ++i) {
        const QImage tile =
            tiles[i].scaled(thickness, thickness, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const int x = kTiles[i].horizontal == Side::Far ? right : 0;
        const int y = kTiles[i].vertical == Side::Far ? bottom : 0;
        const int width = kTiles[i].horizontal == Side::Neither ? image.width() : thickness;
        const int height = kTiles[i].vertical == Side::Neither ? image.height() : thickness;
        QBrush brush(tile);
        brush.setTransform(QTransform::fromTranslate(x, y));
        painter.fillRect(x, y, width, height, brush);
    }
    return image;
}

bool deliverFrame(const Moulding& moulding, const QImage& sample, const Folders& folders)
{
    constexpr int kSampleThickness = 40;
    std::array<QImage, kTiles.size()> tiles;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        tiles[i] = drawTile(moulding, kTiles[i]);
        const std::string name = kTiles[i].stem + identifier(moulding) + ".jpg";
        if (!writeFile(folders.frames / "FrameLib" / name, jpegFile(tiles[i], kJpegQuality))) {
            return false;
        }
    }
    return writeFile(folders.frames / (std::string(moulding.name) + ".jpg"),
                     jpegFile(framed(sample, tiles, kSampleThickness), kJpegQuality));
}

} // namespace

bool deliverFrames(const Folders& folders)
{
    // Whole tiles fit between the corners.
    constexpr QSize kSampleSize(320, 240);
    const QImage sample =
        mountainDawn()
            .scaled(kSampleSize, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation)
            .copy(QRect(QPoint(0, 0), kSampleSize));
    const auto frames = mouldings();
    return std::all_of(frames.begin(), frames.end(), [&](const Moulding& moulding) {
        return deliverFrame(moulding, sample, folders);
    });
}

} // namespace tools
