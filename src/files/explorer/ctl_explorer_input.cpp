#include "files/explorer/ctl_explorer.h"
#include "files/explorer/event_place.h"
#include "files/explorer/rename_delegate.h"
#include "widgets/key_codes.h"
#include "widgets/window_parts.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

qint16 shiftOf(const QInputEvent& event)
{
    return static_cast<qint16>(widgets::shiftState(event.modifiers()));
}

} // namespace

void ctlExplorer::connectInput(files::ExplorerView& view)
{
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
    view.viewport()->setMouseTracking(true);
    widgets::nameScrollBars(view);
    view.header()->setAccessibleName(tr("Columns"));
    const auto begin = [this] {
        qint16 cancel = 0;
        emit BeforeRename(&cancel);
        return cancel == 0;
    };
    const auto end = [this](const QString& name) {
        qint16 cancel = 0;
        emit AfterRename(&cancel, name);
        return cancel == 0;
    };
    view.setItemDelegate(new files::RenameDelegate(begin, end, &view));
}

// The views see everything too: nothing is taken away from them.
bool ctlExplorer::eventFilter(QObject* watched, QEvent* event)
{
    const bool isView = watched == &m_treeView || watched == &m_listView;
    if (isView && (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)) {
        tellKey(*static_cast<QKeyEvent*>(event));
    } else if (!isView) {
        tellMouse(*event);
    }
    return QWidget::eventFilter(watched, event);
}

void ctlExplorer::tellKey(const QKeyEvent& event)
{
    const auto code = static_cast<qint16>(widgets::virtualKey(event));
    if (event.type() == QEvent::KeyRelease) {
        emit KeyUp(code, shiftOf(event));
        return;
    }
    const QString text = event.text();
    emit KeyDown(code, shiftOf(event));
    if (!text.isEmpty()) {
        emit KeyPress(static_cast<qint16>(text.at(0).unicode()));
    }
}

// A press tells what it chooses at once, and only what is chosen already when it ends.
void ctlExplorer::tellMouse(const QEvent& event)
{
    const bool isPress =
        event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    const bool isRelease = event.type() == QEvent::MouseButtonRelease;
    if (!isPress && !isRelease && event.type() != QEvent::MouseMove) {
        return;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const files::EventPlace place = files::eventPlace(mouse.position());
    if (event.type() == QEvent::MouseMove) {
        emit MouseMove(static_cast<qint16>(widgets::buttonNumbers(mouse.buttons())), shiftOf(mouse),
                       place.x, place.y);
        return;
    }
    const auto button = static_cast<qint16>(widgets::buttonNumbers(mouse.button()));
    if (isPress) {
        m_isTold = false;
        emit MouseDown(button, shiftOf(mouse), place.x, place.y);
    } else {
        emit MouseUp(button, shiftOf(mouse), place.x, place.y);
    }
}
