// What is dragged from the two views and onto them.
#include "files/explorer/ctl_explorer.h"
#include "files/explorer/drag_data.h"
#include "files/explorer/event_place.h"
#include "files/explorer/root_keys.h"
#include "widgets/key_codes.h"

#include <QDrag>
#include <QDropEvent>
#include <QIcon>
#include <QMetaMethod>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QUrl>

namespace {

// Its only content is that a node of a tree is under way, which is of use to that tree alone.
const QString kNodeFormat = QStringLiteral("application/x-vistara-node");

// What the explorer offers unasked: nothing that is dragged away is gone here.
constexpr qint32 kCopy = Qt::CopyAction;

qint16 buttonOf(const QDropEvent& event)
{
    return static_cast<qint16>(widgets::buttonNumbers(event.buttons()));
}

qint16 shiftOf(const QDropEvent& event)
{
    return static_cast<qint16>(widgets::shiftState(event.modifiers()));
}

// The effect that the source proposes, if it is among those that a handler left.
void answer(QDropEvent& event, qint32 effect)
{
    const Qt::DropActions allowed = event.possibleActions() & Qt::DropActions(effect);
    if (!allowed) {
        event.setDropAction(Qt::IgnoreAction);
        event.ignore();
        return;
    }
    const auto first = [allowed] {
        for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
            if (allowed.testFlag(action)) {
                return action;
            }
        }
        return Qt::IgnoreAction;
    };
    event.setDropAction(allowed.testFlag(event.proposedAction()) ? event.proposedAction()
                                                                 : first());
    event.accept();
}

// Handlers may read the data, and they get it as the event declares it.
QMimeData* dataOf(const QDropEvent& event)
{
    return const_cast<QMimeData*>(event.mimeData());
}

void addFile(QList<QUrl>& files, const QString& key)
{
    if (!files::isRootKey(key)) {
        files.append(QUrl::fromLocalFile(key));
    }
}

} // namespace

// Roots that stand above folders are none of the files.
std::unique_ptr<QMimeData> ctlExplorer::dragData(const files::ExplorerView& view)
{
    auto content = std::make_unique<files::DragData>(
        [this](files::DragData& promised, qint16 format) { emit OLESetData(&promised, format); });
    if (m_values.OleDragMode == 0) {
        content->setData(kNodeFormat, QByteArray(1, '1'));
        return content;
    }
    QList<QUrl> files;
    for (const QModelIndex& item : view.selectionModel()->selectedIndexes()) {
        if (item.column() == 0) {
            addFile(files, item.data(files::KeyRole).toString());
        }
    }
    content->setUrls(files);
    return content;
}

void ctlExplorer::beginDrag(files::ExplorerView& view)
{
    const bool isOle = m_values.OleDragMode != 0;
    std::unique_ptr<QMimeData> content = dragData(view);
    qint32 effects = kCopy;
    if (isOle) {
        emit OLEStartDrag(content.get(), &effects);
    }
    if (effects == 0) {
        return;
    }
    m_draggedNode = &view == &m_treeView ? m_treeView.currentIndex() : QModelIndex();
    const QPointer<ctlExplorer> self(this);
    auto* const drag = new QDrag(this);
    drag->setMimeData(content.release());
    drag->setPixmap(
        view.currentIndex().data(Qt::DecorationRole).value<QIcon>().pixmap(view.iconSize()));
    connect(drag, &QDrag::actionChanged, this,
            [this, drag](Qt::DropAction action) { giveFeedback(*drag, action); });
    const Qt::DropAction outcome = runDrag(*drag, Qt::DropActions(effects));
    if (!self) {
        return;
    }
    m_draggedNode = QModelIndex();
    m_treeView.setDropHighlight({});
    if (isOle) {
        emit OLECompleteDrag(static_cast<qint32>(outcome));
    }
}

Qt::DropAction ctlExplorer::runDrag(QDrag& drag, Qt::DropActions allowed)
{
    return drag.exec(allowed);
}

// A handler that wants a pointer of its own has given it as MouseIcon.
void ctlExplorer::giveFeedback(QDrag& drag, Qt::DropAction action)
{
    if (m_values.OleDragMode == 0) {
        return;
    }
    auto effect = static_cast<qint32>(action);
    bool isDefault = true;
    emit OLEGiveFeedback(&effect, &isDefault);
    const QImage picture = m_values.MouseIcon.value<QImage>();
    if (!isDefault && !picture.isNull()) {
        drag.setDragCursor(QPixmap::fromImage(picture), action);
    }
}

bool ctlExplorer::isNodeDrag(const files::ExplorerView& view) const
{
    return &view == &m_treeView && m_draggedNode.isValid();
}

bool ctlExplorer::takesDrops() const
{
    return isSignalConnected(QMetaMethod::fromSignal(&ctlExplorer::OLEDragDrop));
}

void ctlExplorer::dragOver(files::ExplorerView& view, QDropEvent& event, Over over)
{
    m_dragPlace = event.position();
    qint32 effect = 0;
    if (isNodeDrag(view)) {
        m_treeView.setDropHighlight(m_treeView.indexAt(event.position().toPoint()));
        effect = m_treeView.dropHighlight().isValid() ? event.possibleActions().toInt() : 0;
    }
    if (m_values.OleDropMode != 0) {
        const files::EventPlace place = files::eventPlace(event.position());
        effect = takesDrops() ? event.possibleActions().toInt() : effect;
        emit OLEDragOver(dataOf(event), &effect, buttonOf(event), shiftOf(event), place.x, place.y,
                         static_cast<qint16>(over));
    }
    answer(event, effect);
}

// What was over the view isn't told any more when it leaves.
void ctlExplorer::dragLeft(files::ExplorerView& /*view*/)
{
    m_treeView.setDropHighlight({});
    if (m_values.OleDropMode != 0) {
        QMimeData none;
        qint32 effect = 0;
        const files::EventPlace place = files::eventPlace(m_dragPlace);
        emit OLEDragOver(&none, &effect, 0, 0, place.x, place.y, static_cast<qint16>(Over::Leave));
    }
}

// A handler may change the tree.
void ctlExplorer::dropped(files::ExplorerView& view, QDropEvent& event)
{
    const bool isNode = isNodeDrag(view);
    if (isNode) {
        m_treeView.setDropHighlight(m_treeView.indexAt(event.position().toPoint()));
    }
    qint32 effect = isNode ? event.possibleActions().toInt() : 0;
    if (m_values.OleDropMode != 0) {
        const files::EventPlace place = files::eventPlace(event.position());
        effect = takesDrops() ? event.possibleActions().toInt() : effect;
        emit OLEDragDrop(dataOf(event), &effect, buttonOf(event), shiftOf(event), place.x, place.y);
    }
    if (isNode) {
        hangNode(m_treeView.dropHighlight());
    }
    m_treeView.setDropHighlight({});
    answer(event, effect);
}

void ctlExplorer::hangNode(const QModelIndex& target)
{
    files::TreeNode* const node = files::TreeModel::nodeOf(m_draggedNode);
    files::TreeNode* const parent = files::TreeModel::nodeOf(target);
    if (node == nullptr || parent == nullptr) {
        return;
    }
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    const QString line = m_tree.moveUnder(*node, *parent);
    if (!line.isEmpty()) {
        m_printed.append(line);
        followSelection();
        update();
    }
}

void ctlExplorer::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    QPainter painter(this);
    int top = 0;
    for (const QString& line : m_printed) {
        painter.drawText(QRect(0, top, width(), fontMetrics().height()), Qt::AlignLeft,
                         files::shownText(line));
        top += fontMetrics().height();
    }
}
