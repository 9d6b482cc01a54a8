#include "files/explorer/list_view.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace files {

namespace {

constexpr int kLargePicture = 32; // pixels
constexpr int kSmallPicture = 16;
constexpr int kPadding = 4;        // above and below the parts of a large icon
constexpr int kLargeLetters = 18;  // of a name beside each other below an icon
constexpr int kFewestLetters = 12; // beside a small one
constexpr int kMostLetters = 40;
constexpr int kWrappedLines = 2;
constexpr int kMeasuredNames = 1000;
constexpr int kLargestStep = 32; // pixels, of the vertical bar

// In letters of common width.
constexpr std::array<int, kListColumns> kColumnLetters{34, 10, 18, 25, 25};

} // namespace

ListView::ListView(DragPartner& partner, QWidget* parent)
    : ExplorerView(partner, parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(true);
    header()->setMinimumSectionSize(0);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { keepWidth(column, width); });
}

void ListView::setModel(QAbstractItemModel* model)
{
    ExplorerView::setModel(model);
    setDefaultWidths();
    showColumns();
}

void ListView::setDefaultWidths()
{
    for (std::size_t column = 0; column < m_widths.size(); ++column) {
        m_widths[column] = kColumnLetters[column] * fontMetrics().averageCharWidth();
    }
}

void ListView::keepWidth(int column, int width)
{
    if (isReport()) {
        m_widths[static_cast<std::size_t>(column)] = width;
    }
}

void ListView::setMode(ListMode mode, ListFlow iconFlow)
{
    if (m_mode == mode && m_flow == iconFlow) {
        return;
    }
    m_mode = mode;
    m_flow = iconFlow;
    const int side = mode == ListMode::LargeIcons ? kLargePicture : kSmallPicture;
    setIconSize({side, side});
    showColumns();
    doItemsLayout();
    scrollTo(currentIndex());
}

void ListView::showColumns()
{
    const auto widths = m_widths;
    for (int column = 0; column < kListColumns; ++column) {
        setColumnHidden(column, column > 0 && !isReport());
        if (isReport()) {
            setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
        }
    }
}

void ListView::setLabelWrap(bool wraps)
{
    if (std::exchange(m_wrapsLabels, wraps) != wraps) {
        doItemsLayout();
    }
}

void ListView::setGridLines(bool shown)
{
    m_hasGridLines = shown;
    viewport()->update();
}

int ListView::reportWidth(int column) const
{
    return m_widths[static_cast<std::size_t>(column)];
}

void ListView::setReportWidth(int column, int width)
{
    m_widths[static_cast<std::size_t>(column)] = width;
    if (isReport()) {
        setColumnWidth(column, width);
    }
}

void ListView::fitColumn(int column)
{
    resizeColumnToContents(column);
    if (column == kListColumns - 1) {
        const int rest = viewport()->width() - columnViewportPosition(column);
        setColumnWidth(column, std::max(columnWidth(column), rest));
    }
}

int ListView::rowCount() const
{
    return model() != nullptr ? model()->rowCount() : 0;
}

QModelIndex ListView::rowIndex(int row) const
{
    return row < 0 ? QModelIndex() : model()->index(row, 0);
}

ListLayout ListView::layout() const
{
    const ListFlow flow = m_mode == ListMode::List ? ListFlow::Columns : m_flow;
    return {flow, cellSize(), viewport()->size(), rowCount()};
}

QSize ListView::cellSize() const
{
    if (!m_cell.isValid()) {
        m_cell = m_mode == ListMode::LargeIcons ? largeCell() : smallCell();
        m_cell += QSize(ListLayout::kGap, ListLayout::kGap) * 2;
    }
    return m_cell;
}

// With so little to spare that the style doesn't begin another line of the name.
QSize ListView::largeCell() const
{
    const int letters = fontMetrics().averageCharWidth() * kLargeLetters;
    const int lines = m_wrapsLabels ? kWrappedLines : 1;
    return {std::max(letters, kLargePicture * 2),
            kLargePicture + fontMetrics().height() * lines + kPadding * 2};
}

// Of many names, some that stand evenly among them are measured.
QModelIndex ListView::widestName() const
{
    const int step = std::max(1, rowCount() / kMeasuredNames);
    QModelIndex widest;
    int width = -1;
    for (int row = 0; row < rowCount(); row += step) {
        const QModelIndex index = rowIndex(row);
        const int own = fontMetrics().horizontalAdvance(index.data().toString());
        if (own > width) {
            width = own;
            widest = index;
        }
    }
    return widest;
}

QSize ListView::smallCell() const
{
    const QModelIndex widest = widestName();
    const QSize hint = widest.isValid() ? sizeHintForIndex(widest) : QSize();
    const int letter = fontMetrics().averageCharWidth();
    return {std::clamp(hint.width(), letter * kFewestLetters, letter * kMostLetters),
            std::max({hint.height(), kSmallPicture, fontMetrics().height()})};
}

void ListView::doItemsLayout()
{
    m_cell = {};
    ExplorerView::doItemsLayout();
}

QRect ListView::visualRect(const QModelIndex& index) const
{
    if (isReport()) {
        return ExplorerView::visualRect(index);
    }
    return index.isValid() && index.column() == 0
               ? layout().itemRect(index.row()).translated(-offset())
               : QRect();
}

// In a report too the first cell stands for the row.
QModelIndex ListView::indexAt(const QPoint& place) const
{
    return isReport() ? ExplorerView::indexAt(place).siblingAtColumn(0)
                      : rowIndex(layout().itemAt(place + offset()));
}

void ListView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (isReport()) {
        ExplorerView::scrollTo(index, hint);
        return;
    }
    executeDelayedItemsLayout();
    if (!index.isValid()) {
        return;
    }
    const QRect item = layout().itemRect(index.row());
    const auto reveal = [](QScrollBar& bar, int from, int to, int room) {
        const int gap = ListLayout::kGap;
        bar.setValue(std::min(from - gap, std::max(bar.value(), to + gap - room + 1)));
    };
    reveal(*verticalScrollBar(), item.top(), item.bottom(), viewport()->height());
    reveal(*horizontalScrollBar(), item.left(), item.right(), viewport()->width());
}

int ListView::horizontalOffset() const
{
    return isReport() ? ExplorerView::horizontalOffset() : horizontalScrollBar()->value();
}

int ListView::verticalOffset() const
{
    return isReport() ? ExplorerView::verticalOffset() : verticalScrollBar()->value();
}

void ListView::updateGeometries()
{
    if (isReport()) {
        ExplorerView::updateGeometries();
        return;
    }
    setViewportMargins(0, 0, 0, 0);
    const ListLayout icons = layout();
    const bool isRows = icons.flow() == ListFlow::Rows;
    const QSize room = viewport()->size();
    verticalScrollBar()->setRange(0, isRows ? icons.content().height() - room.height() : 0);
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setSingleStep(std::min(cellSize().height(), kLargestStep));
    horizontalScrollBar()->setRange(0, isRows ? 0 : icons.content().width() - room.width());
    horizontalScrollBar()->setPageStep(room.width());
    horizontalScrollBar()->setSingleStep(cellSize().width());
    QAbstractItemView::updateGeometries();
}

void ListView::scrollContentsBy(int dx, int dy)
{
    if (isReport()) {
        ExplorerView::scrollContentsBy(dx, dy);
    } else {
        scrollDirtyRegion(dx, dy);
        viewport()->scroll(dx, dy);
    }
}

void ListView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                           const QList<int>& roles)
{
    ExplorerView::dataChanged(topLeft, bottomRight, roles);
    updateGeometries();
}

void ListView::initViewItemOption(QStyleOptionViewItem* option) const
{
    ExplorerView::initViewItemOption(option);
    if (m_mode != ListMode::LargeIcons) {
        return;
    }
    option->decorationPosition = QStyleOptionViewItem::Top;
    option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
    option->features.setFlag(QStyleOptionViewItem::WrapText, m_wrapsLabels);
    option->showDecorationSelected = false;
}

void ListView::paintEvent(QPaintEvent* event)
{
    if (isReport()) {
        ExplorerView::paintEvent(event);
    }
    QPainter painter(viewport());
    if (!isReport()) {
        paintIcons(painter, event->rect());
        paintBand(painter);
    } else if (m_hasGridLines) {
        paintGrid(painter);
    }
}

void ListView::paintIcons(QPainter& painter, const QRect& area)
{
    const ListLayout icons = layout();
    for (const ItemRun& run : icons.itemsIn(area.translated(offset()))) {
        for (int row = run.first; row <= run.last; ++row) {
            paintItem(painter, rowIndex(row), icons.itemRect(row).translated(-offset()));
        }
    }
}

void ListView::paintBand(QPainter& painter)
{
    if (m_band.isNull()) {
        return;
    }
    QStyleOptionRubberBand band;
    band.initFrom(viewport());
    band.shape = QRubberBand::Rectangle;
    band.opaque = false;
    band.rect = m_band.translated(-offset());
    style()->drawControl(QStyle::CE_RubberBand, &band, &painter, viewport());
}

void ListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const
{
    for (int column = 0; column < kListColumns; ++column) {
        const QRect cell(columnViewportPosition(column), option.rect.top(), columnWidth(column),
                         option.rect.height());
        paintItem(*painter, index.siblingAtColumn(column), cell);
    }
}

// Over the empty part below the rows too.
void ListView::paintGrid(QPainter& painter)
{
    QStyleOption option;
    option.initFrom(this);
    const auto hint = style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this);
    painter.setPen(QColor::fromRgba(static_cast<QRgb>(hint)));
    for (int column = 0; column < kListColumns; ++column) {
        const int right = columnViewportPosition(column) + columnWidth(column) - 1;
        painter.drawLine(right, 0, right, viewport()->height());
    }
    const int height = std::max(1, rowCount() > 0 ? rowHeight(rowIndex(0)) : smallCell().height());
    for (int bottom = height - 1 - verticalOffset() % height; bottom < viewport()->height();
         bottom += height) {
        painter.drawLine(0, bottom, viewport()->width(), bottom);
    }
}

} // namespace files
