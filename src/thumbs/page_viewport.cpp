#include "thumbs/page_viewport.h"

#include "widgets/colour_conversion.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace thumbs {

PageViewport::PageViewport(const PageSheet& sheet, QWidget* parent)
    : QWidget(parent)
    , m_sheet(sheet)
    , m_sheetPosition(kFrameMargin, kFrameMargin)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PageViewport::setSheetTop(int top)
{
    if (top != m_sheetPosition.y()) {
        m_sheetPosition.setY(top);
        update();
    }
}

void PageViewport::setSheetLeft(int left)
{
    if (left != m_sheetPosition.x()) {
        m_sheetPosition.setX(left);
        update();
    }
}

QRect PageViewport::tilePlace(int page, const TileBox& box) const
{
    return box.rect().translated(m_sheetPosition + m_sheet.stack().pageRect(page).topLeft());
}

void PageViewport::updateTile(int page, const TileBox& box)
{
    update(tilePlace(page, box));
}

void PageViewport::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    QRegion uncovered = event->region();
    const PageStack& stack = m_sheet.stack();
    const int step = stack.pageSize().height() + stack.topMargin();
    if (stack.pageSize().height() > 0) {
        const int above = event->rect().top() - m_sheetPosition.y() - stack.topMargin();
        const int below = event->rect().bottom() - m_sheetPosition.y();
        const int last = std::min(m_sheet.pages() - 1, std::max(below, 0) / step);
        for (int page = std::max(above, 0) / step; page <= last; ++page) {
            const QRect shown = shownPage(page) & event->rect();
            if (!shown.isEmpty()) {
                paintPage(painter, page, shown);
                uncovered -= shown;
            }
        }
    }
    const QColor frame = widgets::toQColor(m_sheet.frameColour());
    for (const QRect& part : uncovered) {
        painter.fillRect(part, frame);
    }
}

void PageViewport::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const int page = pageAt(position);
    if (page >= 0) {
        const QPoint corner = m_sheet.stack().pageRect(page).topLeft();
        emit pagePressed(page, position - m_sheetPosition - corner);
    }
}

// The second press of a double click is no press of its own.
void PageViewport::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int page = pageAt(event->position().toPoint());
    if (page >= 0) {
        emit pageDoubleClicked(page);
    }
}

QRect PageViewport::sheetRect() const
{
    const QSize size(std::max(0, m_sheet.stack().sheetWidth()), m_sheet.stack().sheetHeight());
    return {m_sheetPosition, size};
}

QRect PageViewport::shownPage(int page) const
{
    return m_sheet.stack().pageRect(page).translated(m_sheetPosition) & sheetRect();
}

int PageViewport::pageAt(QPoint position) const
{
    const int page = m_sheet.stack().pageAt(position.y() - m_sheetPosition.y());
    return page >= 0 && shownPage(page).contains(position) ? page : -1;
}

void PageViewport::paintPage(QPainter& painter, int page, const QRect& part) const
{
    const QImage* bitmap = m_sheet.bitmap(page);
    if (bitmap == nullptr) {
        painter.fillRect(part, widgets::toQColor(m_sheet.pageColour(page)));
        return;
    }
    const QPoint corner = m_sheetPosition + m_sheet.stack().pageRect(page).topLeft();
    const double ratio = m_sheet.ratio();
    const QRectF source(QPointF(part.topLeft() - corner) * ratio, QSizeF(part.size()) * ratio);
    painter.drawImage(QRectF(part), *bitmap, source);
}

} // namespace thumbs
