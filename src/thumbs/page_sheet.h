#pragma once

#include "base/colours.h"
#include "platform/pictures/picture_box.h"
#include "thumbs/frame_layout.h"
#include "thumbs/tile_grid.h"

#include <QPointF>
#include <QSizeF>
#include <vector>

namespace thumbs {

// The pages with what was painted on them. Lengths are device-independent pixels, the bitmaps are
// kept in pixels of the screen, so that tiles are sharp on a dense one. A page gets its bitmap when
// something is first painted on it; pages without a size, and pages so far down that the scroll bar
// doesn't lead there, never get one. Painting on a page that isn't there is passed over.
class PageSheet {
public:
    PageSheet();

    // Gives the first page its place; its drawing is dropped. Further pages must be gone.
    void restart(QSize viewport, double ratio, base::Colour pageColour);
    void restart(QSize viewport, QSize page, int pageLeft, int topMargin, double ratio,
                 base::Colour pageColour);

    // Appends a page in the colour of the first one.
    void addPage();
    void destroyExtraPages();

    [[nodiscard]] const PageStack& stack() const { return m_stack; }
    [[nodiscard]] PageStack& stack() { return m_stack; }
    [[nodiscard]] int pages() const { return m_stack.pages(); }
    [[nodiscard]] double ratio() const { return m_ratio; }

    [[nodiscard]] base::Colour frameColour() const { return m_frameColour; }
    void setFrameColour(base::Colour colour) { m_frameColour = colour; }

    [[nodiscard]] base::Colour pageColour(int page) const;
    // The first page's background; the boxes given keep what is painted in them.
    void setFirstPageColour(base::Colour colour, const std::vector<TileBox>& kept);

    void clear(int page);
    void fillBox(int page, const TileBox& box, base::Colour colour);
    void frameBox(int page, const TileBox& box, base::Colour colour);
    void paintPicture(int page, const platform::Picture& picture, QPointF corner, QSizeF size);

    // The page's bitmap for other drawing, made if needed; null where the page gets none.
    [[nodiscard]] platform::PictureBox* surface(int page);

    // The bitmap as it is, null while nothing was painted.
    [[nodiscard]] const QImage* bitmap(int page) const;

    // The colour of a place on a page.
    [[nodiscard]] base::Colour point(int page, int x, int y) const;

    // Bytes that all bitmaps take.
    [[nodiscard]] qint64 bitmapBytes() const;

private:
    [[nodiscard]] QRect onDevice(const TileBox& box) const;
    [[nodiscard]] bool holds(int page) const;
    [[nodiscard]] platform::PictureBox& box(int page);
    [[nodiscard]] const platform::PictureBox& box(int page) const;

    PageStack m_stack;
    std::vector<platform::PictureBox> m_boxes;
    double m_ratio = 1.0;
    base::Colour m_frameColour = 0x404040;
};

} // namespace thumbs
