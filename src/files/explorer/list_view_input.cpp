// What keys and the mouse do in the list.
#include "files/explorer/list_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace files {

namespace {

constexpr int kRestTime = 400; // milliseconds

QRect spanned(QPoint one, QPoint other)
{
    return {QPoint(std::min(one.x(), other.x()), std::min(one.y(), other.y())),
            QPoint(std::max(one.x(), other.x()), std::max(one.y(), other.y()))};
}

} // namespace

std::optional<ListMove> ListView::moveOf(CursorAction action)
{
    struct KeyMove {
        CursorAction action;
        ListMove move;
    };
    static constexpr std::array kMoves{
        KeyMove{MoveLeft, ListMove::Left},     KeyMove{MoveRight, ListMove::Right},
        KeyMove{MoveUp, ListMove::Up},         KeyMove{MoveDown, ListMove::Down},
        KeyMove{MovePageUp, ListMove::PageUp}, KeyMove{MovePageDown, ListMove::PageDown},
        KeyMove{MoveHome, ListMove::Home},     KeyMove{MoveEnd, ListMove::End},
    };
    for (const KeyMove& row : kMoves) {
        if (row.action == action) {
            return row.move;
        }
    }
    return std::nullopt;
}

QModelIndex ListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (isReport()) {
        return ExplorerView::moveCursor(action, modifiers);
    }
    const std::optional<ListMove> move = moveOf(action);
    const QModelIndex current = currentIndex();
    if (!current.isValid() && rowCount() > 0) {
        return rowIndex(0);
    }
    return move && current.isValid() ? rowIndex(layout().moved(current.row(), *move)) : current;
}

QItemSelection ListView::selectionOf(const std::vector<ItemRun>& runs) const
{
    QItemSelection selection;
    for (const ItemRun& run : runs) {
        selection.select(rowIndex(run.first), rowIndex(run.last));
    }
    return selection;
}

void ListView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command)
{
    if (isReport()) {
        ExplorerView::setSelection(rect, command);
    } else if (state() == DragSelectingState) {
        selectBand(spanned(rect.topLeft(), rect.bottomRight()).translated(offset()), command);
    } else {
        selectSpan(rect.translated(offset()), command);
    }
}

void ListView::selectBand(const QRect& band, QItemSelectionModel::SelectionFlags command)
{
    m_band = band;
    selectionModel()->select(selectionOf(layout().itemsIn(band)), command);
    viewport()->update();
}

// The rectangle leads from the item where the selection begins to the current one; chosen are all
// that stand between them, as they are read.
void ListView::selectSpan(const QRect& rect, QItemSelectionModel::SelectionFlags command)
{
    const int from = layout().itemAt(rect.topLeft());
    const int to = layout().itemAt(rect.bottomRight());
    if (from < 0 || to < 0) {
        selectionModel()->select(QItemSelection(), command);
        return;
    }
    const auto [first, last] = std::minmax(from, to);
    selectionModel()->select(selectionOf({{first, last}}), command);
}

QRegion ListView::visualRegionForSelection(const QItemSelection& selection) const
{
    if (isReport()) {
        return ExplorerView::visualRegionForSelection(selection);
    }
    const ListLayout icons = layout();
    QRegion region;
    for (const ItemRun& run : icons.itemsIn(viewport()->rect().translated(offset()))) {
        for (int row = run.first; row <= run.last; ++row) {
            if (selection.contains(rowIndex(row))) {
                region += icons.itemRect(row).translated(-offset());
            }
        }
    }
    return region;
}

// Return does what a double click does. It goes no farther, to a default button for one.
void ListView::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !event->modifiers().testFlag(Qt::AltModifier) && m_entered &&
        currentIndex().isValid() && state() != EditingState) {
        event->accept();
        m_entered(currentIndex());
        return;
    }
    ExplorerView::keyPressEvent(event);
}

// A second click on a chosen row edits its name only where the name stands.
bool ListView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    const bool isClick = event != nullptr && event->type() == QEvent::MouseButtonRelease;
    if (trigger == SelectedClicked && isClick &&
        !visualRect(index).contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
        return false;
    }
    return ExplorerView::edit(index, trigger, event);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (isReport()) {
        ExplorerView::mouseDoubleClickEvent(event);
    } else {
        QAbstractItemView::mouseDoubleClickEvent(event);
    }
}

void ListView::mouseMoveEvent(QMouseEvent* event)
{
    ExplorerView::mouseMoveEvent(event);
    restOn(event->buttons() == Qt::NoButton ? indexAt(event->position().toPoint()) : QModelIndex());
}

void ListView::mouseReleaseEvent(QMouseEvent* event)
{
    ExplorerView::mouseReleaseEvent(event);
    if (!std::exchange(m_band, QRect()).isNull()) {
        viewport()->update();
    }
}

void ListView::wheelEvent(QWheelEvent* event)
{
    const int turn = event->angleDelta().y();
    if (isReport() || layout().flow() == ListFlow::Rows || turn == 0) {
        ExplorerView::wheelEvent(event);
        return;
    }
    QScrollBar& bar = *horizontalScrollBar();
    bar.setValue(bar.value() - turn * cellSize().width() / QWheelEvent::DefaultDeltasPerStep);
    event->accept();
}

void ListView::setHoverSelection(bool selects)
{
    m_selectsOnHover = selects;
    restOn({});
}

void ListView::restOn(const QModelIndex& index)
{
    if (!m_selectsOnHover || !index.isValid()) {
        m_rested = QModelIndex();
        m_rest.stop();
    } else if (m_rested != index) {
        m_rested = index;
        m_rest.start(kRestTime, this);
    }
}

void ListView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_rest.timerId()) {
        ExplorerView::timerEvent(event);
        return;
    }
    m_rest.stop();
    if (m_rested.isValid() && state() == NoState) {
        setCurrentIndex(m_rested);
    }
}

void ListView::leaveEvent(QEvent* event)
{
    restOn({});
    ExplorerView::leaveEvent(event);
}

} // namespace files
