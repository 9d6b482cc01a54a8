#include "thumbs/page_sheet.h"

#include "platform/pictures/transfers.h"

#include <cmath>

namespace thumbs {

using platform::PictureBox;

PageSheet::PageSheet()
    : m_boxes(1)
{
}

void PageSheet::restart(QSize viewport, double ratio, base::Colour pageColour)
{
    m_stack.restart(viewport);
    m_ratio = ratio;
    m_boxes.assign(1, PictureBox());
    m_boxes.front().setBackColor(pageColour);
}

void PageSheet::restart(QSize viewport, QSize page, int pageLeft, int topMargin, double ratio,
                        base::Colour pageColour)
{
    restart(viewport, ratio, pageColour);
    m_stack.restart(viewport, page, pageLeft, topMargin);
}

void PageSheet::addPage()
{
    m_stack.addPage();
    PictureBox added;
    added.setBackColor(m_boxes.front().BackColor());
    m_boxes.push_back(std::move(added));
}

void PageSheet::destroyExtraPages()
{
    m_boxes.resize(1);
    m_stack.setPages(1);
}

base::Colour PageSheet::pageColour(int page) const
{
    return box(holds(page) ? page : 0).BackColor();
}

void PageSheet::setFirstPageColour(base::Colour colour, const std::vector<TileBox>& kept)
{
    PictureBox& first = m_boxes.front();
    const QImage before = first.surface();
    first.setBackColor(colour);
    for (const TileBox& tile : kept) {
        const QRect place = onDevice(tile) & before.rect();
        if (!place.isEmpty()) {
            platform::BitBlt(first.surface(), place.x(), place.y(), place.width(), place.height(),
                             before, place.x(), place.y());
        }
    }
}

void PageSheet::clear(int page)
{
    if (holds(page)) {
        const base::Colour colour = box(page).BackColor();
        box(page) = PictureBox();
        box(page).setBackColor(colour);
    }
}

void PageSheet::fillBox(int page, const TileBox& tile, base::Colour colour)
{
    if (PictureBox* target = surface(page)) {
        const QRect place = onDevice(tile);
        target->fillBox(place.left(), place.top(), place.right(), place.bottom(), colour);
    }
}

void PageSheet::frameBox(int page, const TileBox& tile, base::Colour colour)
{
    fillBox(page, {tile.left, tile.top, tile.right, tile.top}, colour);
    fillBox(page, {tile.left, tile.bottom, tile.right, tile.bottom}, colour);
    fillBox(page, {tile.left, tile.top, tile.left, tile.bottom}, colour);
    fillBox(page, {tile.right, tile.top, tile.right, tile.bottom}, colour);
}

void PageSheet::paintPicture(int page, const platform::Picture& picture, QPointF corner,
                             QSizeF size)
{
    PictureBox* target = surface(page);
    if (target != nullptr && !picture.isNothing()) {
        target->paintPicture(picture, corner.x() * m_ratio, corner.y() * m_ratio,
                             size.width() * m_ratio, size.height() * m_ratio);
    }
}

PictureBox* PageSheet::surface(int page)
{
    if (!holds(page) || !m_stack.isReachable(page)) {
        return nullptr;
    }
    PictureBox& found = box(page);
    if (found.surface().isNull()) {
        const QSizeF size = QSizeF(m_stack.pageSize()) * m_ratio;
        if (!found.resize(static_cast<int>(std::ceil(size.width())),
                          static_cast<int>(std::ceil(size.height())))) {
            return nullptr;
        }
    }
    return &found;
}

const QImage* PageSheet::bitmap(int page) const
{
    const bool painted = holds(page) && !box(page).surface().isNull();
    return painted ? &box(page).surface() : nullptr;
}

base::Colour PageSheet::point(int page, int x, int y) const
{
    if (!holds(page)) {
        return base::translated(m_frameColour);
    }
    return box(page).point(static_cast<int>(x * m_ratio), static_cast<int>(y * m_ratio));
}

qint64 PageSheet::bitmapBytes() const
{
    qint64 bytes = 0;
    for (const PictureBox& page : m_boxes) {
        bytes += page.surface().sizeInBytes();
    }
    return bytes;
}

QRect PageSheet::onDevice(const TileBox& tile) const
{
    const auto edge = [this](int place) { return static_cast<int>(std::lround(place * m_ratio)); };
    return {QPoint(edge(tile.left), edge(tile.top)),
            QPoint(edge(tile.right + 1) - 1, edge(tile.bottom + 1) - 1)};
}

bool PageSheet::holds(int page) const
{
    return page >= 0 && page < static_cast<int>(m_boxes.size());
}

PictureBox& PageSheet::box(int page)
{
    return m_boxes[static_cast<std::size_t>(page)];
}

const PictureBox& PageSheet::box(int page) const
{
    return m_boxes[static_cast<std::size_t>(page)];
}

} // namespace thumbs
