#include "files/explorer/list_layout.h"

#include <algorithm>

namespace files {

ListLayout::ListLayout(ListFlow flow, QSize cell, QSize viewport, int count)
    : m_flow(flow)
    , m_cell(cell.expandedTo({1, 1}))
    , m_viewport(viewport)
    , m_count(count)
    , m_lineLength(std::max(1, flow == ListFlow::Rows ? viewport.width() / m_cell.width()
                                                      : viewport.height() / m_cell.height()))
{
}

int ListLayout::lineCount() const
{
    return (m_count + m_lineLength - 1) / m_lineLength;
}

QSize ListLayout::content() const
{
    const int length = std::min(m_count, m_lineLength);
    return m_flow == ListFlow::Rows ? QSize(length * m_cell.width(), lineCount() * m_cell.height())
                                    : QSize(lineCount() * m_cell.width(), length * m_cell.height());
}

QRect ListLayout::itemRect(int item) const
{
    const int line = item / m_lineLength;
    const int place = item % m_lineLength;
    const QPoint cell = m_flow == ListFlow::Rows ? QPoint(place, line) : QPoint(line, place);
    const QPoint corner(cell.x() * m_cell.width(), cell.y() * m_cell.height());
    return QRect(corner, m_cell).adjusted(kGap, kGap, -kGap, -kGap);
}

int ListLayout::itemAt(QPoint place) const
{
    const std::vector<ItemRun> runs = itemsIn({place, QSize(1, 1)});
    return runs.empty() ? -1 : runs.front().first;
}

// The cells whose items an area touches: y counts lines, x the places in a line.
QRect ListLayout::lineCells(const QRect& area) const
{
    const auto first = [](int edge, int size) { return std::max(0, (edge + kGap) / size); };
    const auto last = [](int edge, int size) { return edge < kGap ? -1 : (edge - kGap) / size; };
    const QPoint from(first(area.left(), m_cell.width()), first(area.top(), m_cell.height()));
    const QPoint to(last(area.right(), m_cell.width()), last(area.bottom(), m_cell.height()));
    const QRect cells(from, to);
    return m_flow == ListFlow::Rows ? cells : QRect(from.transposed(), to.transposed());
}

std::vector<ItemRun> ListLayout::itemsIn(const QRect& area) const
{
    const QRect cells = lineCells(area);
    const int lastPlace = std::min(cells.right(), m_lineLength - 1);
    const int lastLine = std::min(cells.bottom(), lineCount() - 1);
    std::vector<ItemRun> runs;
    if (lastPlace < cells.left()) {
        return runs;
    }
    for (int line = cells.top(); line <= lastLine; ++line) {
        const ItemRun run{line * m_lineLength + cells.left(),
                          std::min(line * m_lineLength + lastPlace, m_count - 1)};
        if (run.last < run.first) {
            break;
        }
        if (!runs.empty() && runs.back().last + 1 == run.first) {
            runs.back().last = run.last;
        } else {
            runs.push_back(run);
        }
    }
    return runs;
}

int ListLayout::linesOfPage() const
{
    const int lines = m_flow == ListFlow::Rows ? m_viewport.height() / m_cell.height()
                                               : m_viewport.width() / m_cell.width();
    return std::max(1, lines);
}

int ListLayout::stepOf(ListMove move) const
{
    const bool isRows = m_flow == ListFlow::Rows;
    switch (move) {
    case ListMove::Left:
        return isRows ? -1 : -m_lineLength;
    case ListMove::Right:
        return isRows ? 1 : m_lineLength;
    case ListMove::Up:
        return isRows ? -m_lineLength : -1;
    case ListMove::Down:
        return isRows ? m_lineLength : 1;
    case ListMove::PageUp:
        return -linesOfPage() * m_lineLength;
    case ListMove::PageDown:
        return linesOfPage() * m_lineLength;
    case ListMove::Home:
        return -m_count;
    case ListMove::End:
        break;
    }
    return m_count;
}

// Steps of a whole line stay where there is none; a shorter last line is met at its end.
bool ListLayout::crossesLine(int from, ListMove move) const
{
    const int line = from / m_lineLength;
    const int step = stepOf(move);
    return step < 0 ? line > 0 : line < lineCount() - 1;
}

int ListLayout::moved(int from, ListMove move) const
{
    const int step = stepOf(move);
    const bool isEnd = move == ListMove::Home || move == ListMove::End;
    const bool isLineStep = !isEnd && step % m_lineLength == 0 && m_lineLength > 1;
    const bool isPage = move == ListMove::PageUp || move == ListMove::PageDown;
    if (isLineStep && !isPage && !crossesLine(from, move)) {
        return from;
    }
    if (isLineStep && from + step < 0 && crossesLine(from, move)) {
        return from % m_lineLength;
    }
    return std::clamp(from + step, 0, std::max(0, m_count - 1));
}

} // namespace files
