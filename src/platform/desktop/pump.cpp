#include "platform/desktop/pump.h"

#include "platform/desktop/modal_dialog.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

namespace platform {

namespace {

bool g_closing = false;

template<typename LetEventsRun> bool pumpBy(LetEventsRun letEventsRun, const QObject* guard)
{
    const bool guarded = guard != nullptr;
    const QPointer<const QObject> alive = guard;
    if (!g_closing) {
        letEventsRun();
    }
    return !g_closing && (!guarded || alive != nullptr);
}

} // namespace

bool pump(const QObject* guard)
{
    return pumpBy([] { QCoreApplication::processEvents(); }, guard);
}

bool pumpWithin(std::chrono::milliseconds longest, const QObject* guard)
{
    QTimer alarm;
    alarm.setSingleShot(true);
    alarm.start(longest);
    return pumpBy([] { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }, guard);
}

void beginClosing()
{
    g_closing = true;
    cancelModalDialogs();
}

bool isClosing()
{
    return g_closing;
}

void resetClosing()
{
    g_closing = false;
}

} // namespace platform
