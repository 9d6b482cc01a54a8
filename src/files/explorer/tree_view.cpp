#include "files/explorer/tree_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace files {

namespace {

constexpr int kExpandDelay = 800; // milliseconds that a drag rests on a node until it opens

bool isWithin(QModelIndex index, const QModelIndex& branch)
{
    while (index.isValid() && index != branch) {
        index = index.parent();
    }
    return index.isValid();
}

} // namespace

TreeView::TreeView(DragPartner& partner, QWidget* parent)
    : ExplorerView(partner, parent)
{
    setHeaderHidden(true);
    setDragEnabled(true);
    viewport()->setAcceptDrops(true);
    setAutoExpandDelay(kExpandDelay);
}

void TreeView::setDropHighlight(const QModelIndex& index)
{
    if (m_dropHighlight != index) {
        m_dropHighlight = index;
        viewport()->update();
    }
}

void TreeView::setSingleBranch(bool single)
{
    m_isSingleBranch = single;
    setExpandsOnDoubleClick(!single);
}

void TreeView::clickBranch(const QModelIndex& index)
{
    if (!m_isSingleBranch || !index.isValid()) {
        return;
    }
    const QPersistentModelIndex clicked(index);
    const QPersistentModelIndex before = std::exchange(m_branch, clicked);
    const bool opens = before != clicked || !isExpanded(index);
    for (QPersistentModelIndex old = before; old.isValid() && !isWithin(clicked, old);
         old = old.parent()) {
        collapse(old);
    }
    if (clicked.isValid()) {
        setExpanded(clicked, opens);
    }
}

void TreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const
{
    const QRect cell = visualRect(index);
    if (look().isRowSelected && looksSelected(index)) {
        painter->fillRect(option.rect, option.palette.highlight());
    }
    QRect branches(option.rect);
    if (isRightToLeft()) {
        branches.setLeft(cell.right() + 1);
    } else {
        branches.setLeft(columnViewportPosition(0));
        branches.setRight(cell.left() - 1);
    }
    drawBranches(painter, branches, index);
    paintItem(*painter, index, cell);
    if (index == m_dropHighlight) {
        QColor shade = option.palette.color(QPalette::Highlight);
        painter->setPen(shade);
        shade.setAlphaF(0.3F);
        painter->setBrush(shade);
        painter->drawRect(cell.adjusted(0, 0, -1, -1));
    }
}

// An asterisk opens one branch like a plus: all below it could be the whole disk.
void TreeView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Asterisk && currentIndex().isValid()) {
        expand(currentIndex());
        return;
    }
    ExplorerView::keyPressEvent(event);
}

} // namespace files
