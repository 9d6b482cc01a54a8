#pragma once

#include "files/explorer/explorer_view.h"
#include "files/explorer/list_layout.h"
#include "files/explorer/list_rows.h"

#include <QBasicTimer>
#include <QPersistentModelIndex>
#include <array>
#include <functional>
#include <optional>

namespace files {

// How the list shows its rows.
enum class ListMode { LargeIcons = 0, SmallIcons = 1, List = 2, Report = 3 };

// The view of the list: icons in a grid, names in columns, or a report with a header. All rows are
// of one size, so that their number matters to none of them.
class ListView : public ExplorerView {
public:
    ListView(DragPartner& partner, QWidget* parent);

    // Called with the row for which the user presses Return.
    void onEntered(std::function<void(const QModelIndex&)> handler)
    {
        m_entered = std::move(handler);
    }

    // The flow is that of the icons; a list always fills columns and a report rows.
    void setMode(ListMode mode, ListFlow iconFlow);
    void setLabelWrap(bool wraps);
    void setGridLines(bool shown);
    void setHoverSelection(bool selects); // what the mouse rests on

    // The width of a column, as the report shows it or will show it. Pixels; zero-based columns.
    [[nodiscard]] int reportWidth(int column) const;
    void setReportWidth(int column, int width);

    // As wide as what stands in the column and its caption. The last one fills the view.
    void fitColumn(int column);

    void setModel(QAbstractItemModel* model) override;
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    [[nodiscard]] QModelIndex indexAt(const QPoint& place) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    [[nodiscard]] int horizontalOffset() const override;
    [[nodiscard]] int verticalOffset() const override;
    [[nodiscard]] QModelIndex moveCursor(CursorAction action,
                                         Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] bool isReport() const { return m_mode == ListMode::Report; }
    [[nodiscard]] static std::optional<ListMove> moveOf(CursorAction action);
    [[nodiscard]] ListLayout layout() const;
    [[nodiscard]] QPoint offset() const { return {horizontalOffset(), verticalOffset()}; }
    [[nodiscard]] QModelIndex rowIndex(int row) const;
    [[nodiscard]] int rowCount() const;
    [[nodiscard]] QSize cellSize() const;
    [[nodiscard]] QModelIndex widestName() const;
    [[nodiscard]] QSize largeCell() const;
    [[nodiscard]] QSize smallCell() const;
    void showColumns();
    void setDefaultWidths();
    void keepWidth(int column, int width);
    void paintIcons(QPainter& painter, const QRect& area);
    void paintBand(QPainter& painter);
    void paintGrid(QPainter& painter);
    void selectBand(const QRect& band, QItemSelectionModel::SelectionFlags command);
    void selectSpan(const QRect& rect, QItemSelectionModel::SelectionFlags command);
    [[nodiscard]] QItemSelection selectionOf(const std::vector<ItemRun>& runs) const;
    void restOn(const QModelIndex& index);

    ListMode m_mode = ListMode::Report;
    ListFlow m_flow = ListFlow::Rows;
    bool m_wrapsLabels = false;
    bool m_hasGridLines = false;
    bool m_selectsOnHover = false;
    mutable QSize m_cell; // not valid until it is measured
    std::array<int, kListColumns> m_widths{};
    QRect m_band; // that the user draws around items; from the upper left corner of the first one
    std::function<void(const QModelIndex&)> m_entered;
    QBasicTimer m_rest;
    QPersistentModelIndex m_rested; // under the mouse while the timer runs
};

} // namespace files
