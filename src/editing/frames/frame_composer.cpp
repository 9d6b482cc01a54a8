#include "editing/frames/frame_composer.h"

#include "base/numbers.h"
#include "editing/frames/frame_tiles.h"
#include "platform/pictures/transfers.h"

#include <cmath>

namespace frames {

namespace {

constexpr int kPreviewMargin = 2;
constexpr int kFinalMargin = 4;
constexpr int kTilesBetweenReports = 64; // of each edge

class Composer {
public:
    Composer(QImage& picture, const FrameMeasures& measures, FrameTiles& tiles,
             const Progress& progress)
        : m_picture(picture)
        , m_measures(measures)
        , m_tiles(tiles)
        , m_progress(progress)
        , m_right(picture.width() - measures.tile - measures.margin)
        , m_bottom(picture.height() - measures.tile - measures.margin)
    {
    }

    Composed run()
    {
        const bool isWhole = drawSides() && drawEnds() && drawCorners();
        return m_stopped ? Composed::Stopped : isWhole ? Composed::Whole : Composed::Partly;
    }

private:
    bool drawSides()
    {
        const int height = m_picture.height();
        for (int y = 0; y <= height; y += m_measures.tile) {
            if (!report(y) || !paint(Tile::Left, 0, y) || !paint(Tile::Right, m_right, y)) {
                return false;
            }
        }
        return true;
    }

    bool drawEnds()
    {
        const int width = m_picture.width();
        for (int x = 0; x <= width; x += m_measures.tile) {
            if (!report(m_picture.height() + x) || !paint(Tile::Bottom, x, m_bottom) ||
                !paint(Tile::Top, x, 0)) {
                return false;
            }
        }
        return report(m_picture.height() + width, Always::Yes);
    }

    bool drawCorners()
    {
        return paint(Tile::LeftTop, 0, 0) && paint(Tile::RightTop, m_right, 0) &&
               paint(Tile::LeftBottom, 0, m_bottom) && paint(Tile::RightBottom, m_right, m_bottom);
    }

    bool paint(Tile tile, int x, int y)
    {
        const QImage& image = m_tiles.at(tile);
        if (image.isNull()) {
            return false;
        }
        // A tile that lies wholly beyond the edge paints nothing.
        platform::BitBlt(m_picture, x, y, image.width(), image.height(), image, 0, 0);
        return true;
    }

    enum class Always { No, Yes };

    // The way along the edges, in pixels.
    bool report(int done, Always always = Always::No)
    {
        const bool isDue = always == Always::Yes || m_placed++ % kTilesBetweenReports == 0;
        const double whole = m_picture.width() + static_cast<double>(m_picture.height());
        m_stopped = isDue && m_progress && !m_progress(done / whole);
        return !m_stopped;
    }

    QImage& m_picture;
    const FrameMeasures m_measures;
    FrameTiles& m_tiles;
    const Progress& m_progress;
    const int m_right;
    const int m_bottom;
    int m_placed = 0;
    bool m_stopped = false;
};

int onScreen(int length, double screenRatio)
{
    return static_cast<int>(std::lround(length * screenRatio));
}

} // namespace

FrameMeasures previewMeasures(int thickness, double screenRatio)
{
    const int half = static_cast<int>(base::roundHalfEven(thickness / 2.0));
    return {onScreen(half, screenRatio), onScreen(kPreviewMargin, screenRatio)};
}

FrameMeasures finalMeasures(int thickness)
{
    return {thickness, kFinalMargin};
}

QSize previewSize(QSize picture, QSize room)
{
    return picture.isEmpty() ? QSize()
                             : picture.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

Composed drawFrame(QImage& picture, const FrameMeasures& measures, FrameTiles& tiles,
                   const Progress& progress)
{
    return picture.isNull() ? Composed::Partly : Composer(picture, measures, tiles, progress).run();
}

} // namespace frames
