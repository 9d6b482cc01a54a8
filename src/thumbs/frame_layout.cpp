#include "thumbs/frame_layout.h"

#include <algorithm>
#include <limits>

namespace thumbs {

namespace {

int orSmallest(int length)
{
    return length < 0 ? kSmallestFrame : length;
}

// No viewport is higher, so a page further down than this stays out of sight whatever its size.
constexpr int kHighestViewport = 8192;

} // namespace

FrameLayout layoutFrame(QSize control, const FrameParts& parts)
{
    FrameLayout layout;
    const int top = parts.barVisible ? parts.barHeight : 0;
    const int height = control.height() - top;
    const int width = orSmallest(control.width() - parts.scrollWidth);
    layout.viewport = {0, top, width, parts.barVisible ? orSmallest(height) : height};
    layout.scroll = {width, top, parts.scrollWidth, layout.viewport.height()};
    const int whole = width + parts.scrollWidth;
    layout.bar = {0, 0, whole, parts.barHeight};
    layout.strip = {0, parts.barHeight - parts.stripHeight, whole, parts.stripHeight};
    return layout;
}

int leastSheetHeight(int viewportHeight)
{
    return static_cast<int>(viewportHeight - 2.5 * kFrameMargin);
}

void PageStack::restart(QSize viewport, int topMargin)
{
    const QSize page(viewport.width() - 2 * kFrameMargin, viewport.height() - 2 * topMargin);
    restart(viewport, page, 0, topMargin);
}

void PageStack::restart(QSize viewport, QSize page, int pageLeft, int topMargin)
{
    m_viewport = viewport;
    m_page = page;
    m_pageLeft = pageLeft;
    m_topMargin = topMargin;
    m_pages = 1;
    m_sheetWidth = viewport.width() - 2 * kFrameMargin;
    m_sheetHeight = viewport.height() - 1;
    m_scrollMaximum = 0;
}

void PageStack::addPage()
{
    ++m_pages;
    followContent();
}

void PageStack::setPages(int count)
{
    m_pages = std::max(1, count);
}

void PageStack::followViewport(QSize viewport)
{
    m_viewport = viewport;
    if (m_page.isEmpty()) {
        return;
    }
    const int before = m_sheetHeight;
    followContent();
    raiseSheet(before);
}

int PageStack::pageTop(int page) const
{
    const std::int64_t step = std::int64_t{m_page.height()} + m_topMargin;
    const std::int64_t top = m_topMargin + page * step;
    return static_cast<int>(std::clamp<std::int64_t>(top, 0, std::numeric_limits<int>::max() / 2));
}

QRect PageStack::pageRect(int page) const
{
    return {QPoint(m_pageLeft, pageTop(page)), m_page};
}

int PageStack::pageAt(int y) const
{
    const int step = m_page.height() + m_topMargin;
    if (step <= 0 || y < m_topMargin) {
        return -1;
    }
    const int page = (y - m_topMargin) / step;
    const bool inPage = page < m_pages && y < pageTop(page) + m_page.height();
    return inPage ? page : -1;
}

void PageStack::raiseSheet(int height)
{
    m_sheetHeight = std::max(m_sheetHeight, height);
}

bool PageStack::isReachable(int page) const
{
    return pageTop(page) < kLargestBarValue + std::max(m_viewport.height(), kHighestViewport);
}

void PageStack::followContent()
{
    const int content = pageTop(m_pages - 1) + m_page.height() + m_topMargin;
    if (content > m_viewport.height()) {
        m_sheetHeight = content;
        const int maximum = m_sheetHeight - m_viewport.height() - kFrameMargin;
        m_scrollMaximum = std::clamp(maximum, 0, kLargestBarValue);
    } else {
        m_sheetHeight = m_viewport.height() - 1;
        m_scrollMaximum = 0;
    }
}

} // namespace thumbs
