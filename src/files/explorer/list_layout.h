#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <vector>

namespace files {

// Whether the lines of cells are rows, which scroll up and down, or columns, which scroll sideways.
enum class ListFlow { Rows, Columns };

enum class ListMove { Left, Right, Up, Down, PageUp, PageDown, Home, End };

// Items beside each other, first to last, both counted in.
struct ItemRun {
    int first;
    int last;

    bool operator==(const ItemRun&) const = default;
};

// Where the items of a list stand whose cells are all of one size. Pixels from the upper left
// corner of the first cell; items are zero-based.
class ListLayout {
public:
    // Space around each item inside its cell, where it isn't met.
    static constexpr int kGap = 2;

    ListLayout() = default;
    ListLayout(ListFlow flow, QSize cell, QSize viewport, int count);

    [[nodiscard]] ListFlow flow() const { return m_flow; }
    [[nodiscard]] QSize content() const;
    [[nodiscard]] QRect itemRect(int item) const;
    [[nodiscard]] int itemAt(QPoint place) const; // -1 between them and outside

    // The items that an area touches, in their order; runs that follow each other are one.
    [[nodiscard]] std::vector<ItemRun> itemsIn(const QRect& area) const;

    // The item that a key leads to from another one. At an edge it is the same.
    [[nodiscard]] int moved(int from, ListMove move) const;

private:
    [[nodiscard]] int lineCount() const;
    [[nodiscard]] QRect lineCells(const QRect& area) const;
    [[nodiscard]] int stepOf(ListMove move) const;
    [[nodiscard]] int linesOfPage() const;
    [[nodiscard]] bool crossesLine(int from, ListMove move) const;

    ListFlow m_flow = ListFlow::Rows;
    QSize m_cell = {1, 1};
    QSize m_viewport;
    int m_count = 0;
    int m_lineLength = 1; // cells
};

} // namespace files
