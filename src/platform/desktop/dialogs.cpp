#include "platform/desktop/dialogs.h"

#include "platform/desktop/qt_dialogs.h"

namespace platform {

namespace {

Dialogs*& current()
{
    static QtDialogs desktopDialogs;
    static Dialogs* instance = &desktopDialogs;
    return instance;
}

} // namespace

Dialogs& dialogs()
{
    return *current();
}

ScopedDialogs::ScopedDialogs(Dialogs& replacement)
    : m_previous(current())
{
    current() = &replacement;
}

ScopedDialogs::~ScopedDialogs()
{
    current() = m_previous;
}

} // namespace platform
