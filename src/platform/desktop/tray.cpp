#include "platform/desktop/tray.h"

#include "platform/desktop/qt_tray.h"

namespace platform {

namespace {

Tray*& current()
{
    static QtTray real;
    static Tray* instance = &real;
    return instance;
}

} // namespace

Tray& tray()
{
    return *current();
}

ScopedTray::ScopedTray(Tray& replacement)
    : m_previous(current())
{
    current() = &replacement;
}

ScopedTray::~ScopedTray()
{
    current() = m_previous;
}

} // namespace platform
