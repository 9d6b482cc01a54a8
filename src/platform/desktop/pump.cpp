#include "platform/desktop/pump.h"

#include "platform/desktop/modal_dialog.h"

#include <QCoreApplication>
#include <QPointer>

namespace platform {

namespace {

bool g_closing = false;

} // namespace

bool pump(const QObject* guard)
{
    const bool guarded = guard != nullptr;
    const QPointer<const QObject> alive = guard;
    if (!g_closing) {
        QCoreApplication::processEvents();
    }
    return !g_closing && (!guarded || alive != nullptr);
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
