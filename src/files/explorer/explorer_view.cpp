#include "files/explorer/explorer_view.h"

#include "widgets/plain_tip.h"

#include <QApplication>
#include <QDropEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolTip>
#include <utility>

namespace files {

ExplorerView::ExplorerView(DragPartner& partner, QWidget* parent)
    : QTreeView(parent)
    , m_partner(partner)
{
    setUniformRowHeights(true);
    setDropIndicatorShown(false);
    viewport()->setAttribute(Qt::WA_Hover);
    // Those who hear of the press may let events run.
    connect(this, &QTreeView::pressed, this, [this] { m_isTakingPress = false; });
}

void ExplorerView::setLook(const Look& look)
{
    m_look = look;
    viewport()->update();
}

void ExplorerView::initViewItemOption(QStyleOptionViewItem* option) const
{
    QTreeView::initViewItemOption(option);
    option->showDecorationSelected = m_look.isRowSelected;
}

// A name that is being edited has the focus in the view's stead.
bool ExplorerView::hasFocusWithin() const
{
    const QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr && (focus == this || isAncestorOf(focus));
}

bool ExplorerView::looksSelected(const QModelIndex& index) const
{
    const bool isShown = !m_look.hidesIdleSelection || hasFocusWithin();
    return isShown && selectionModel()->isSelected(index);
}

bool ExplorerView::isUnderMouse(const QModelIndex& index) const
{
    return viewport()->underMouse() && isEnabled() &&
           indexAt(viewport()->mapFromGlobal(QCursor::pos())) == index;
}

QStyle::State ExplorerView::stateOf(const QModelIndex& index) const
{
    QStyle::State state = QStyle::State_None;
    state.setFlag(QStyle::State_Selected, looksSelected(index));
    state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
    state.setFlag(QStyle::State_MouseOver, isUnderMouse(index));
    return state;
}

void ExplorerView::paintItem(QPainter& painter, const QModelIndex& index, const QRect& rect) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = rect;
    option.state |= stateOf(index);
    if (m_look.marksItemUnderMouse && option.state.testFlag(QStyle::State_MouseOver)) {
        option.font.setUnderline(true);
        option.palette.setBrush(QPalette::Text, option.palette.link());
    }
    itemDelegateForIndex(index)->paint(&painter, option, index);
}

bool ExplorerView::isCutShort(const QModelIndex& index) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    const QSize whole = itemDelegateForIndex(index)->sizeHint(option, index);
    const QSize shown = option.rect.intersected(viewport()->rect()).size();
    return whole.width() > shown.width() || whole.height() > option.rect.height();
}

void ExplorerView::showWholeText(const QHelpEvent& event)
{
    const QModelIndex index = indexAt(event.pos());
    if (index.isValid() && isCutShort(index)) {
        QToolTip::showText(event.globalPos(), widgets::plainTip(index.data().toString()),
                           viewport(), visualRect(index));
    } else {
        QToolTip::hideText();
    }
}

bool ExplorerView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        showWholeText(static_cast<const QHelpEvent&>(*event));
        return true;
    }
    return QTreeView::viewportEvent(event);
}

void ExplorerView::mousePressEvent(QMouseEvent* event)
{
    m_isTakingPress = true;
    QTreeView::mousePressEvent(event);
    m_isTakingPress = false;
}

void ExplorerView::focusInEvent(QFocusEvent* event)
{
    const QScopedValueRollback<bool> taking(m_isTakingFocus, true);
    const bool hadCurrent = currentIndex().isValid();
    QTreeView::focusInEvent(event);
    if (!hadCurrent) {
        selectionModel()->clearCurrentIndex();
    }
    viewport()->update();
}

void ExplorerView::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    viewport()->update();
}

void ExplorerView::startDrag(Qt::DropActions /*supportedActions*/)
{
    m_partner.beginDrag(*this);
}

void ExplorerView::dragEnterEvent(QDragEnterEvent* event)
{
    m_partner.dragOver(*this, *event, DragPartner::Over::Enter);
}

// The view itself scrolls at its edges; what may be dropped isn't its business.
void ExplorerView::dragMoveEvent(QDragMoveEvent* event)
{
    QTreeView::dragMoveEvent(event);
    m_partner.dragOver(*this, *event, DragPartner::Over::Move);
}

void ExplorerView::dragLeaveEvent(QDragLeaveEvent* event)
{
    QTreeView::dragLeaveEvent(event);
    m_partner.dragLeft(*this);
}

void ExplorerView::dropEvent(QDropEvent* event)
{
    stopAutoScroll();
    setState(NoState);
    m_partner.dropped(*this, *event);
}

} // namespace files
