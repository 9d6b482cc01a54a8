#include "platform/desktop/screen_flush.h"

#include <QAbstractEventDispatcher>

namespace platform {

void flushScreen()
{
    // On Wayland nothing leaves the program until the event loop is about to wait. It is told so
    // without having run, and no handler of the program's own listens to that.
    if (QAbstractEventDispatcher* loop = QAbstractEventDispatcher::instance()) {
        emit loop->aboutToBlock();
    }
}

} // namespace platform
