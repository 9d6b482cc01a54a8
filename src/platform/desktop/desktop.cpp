#include "platform/desktop/desktop.h"

#include "platform/desktop/qt_desktop.h"

namespace platform {

namespace {

Desktop*& current()
{
    static QtDesktop realDesktop;
    static Desktop* instance = &realDesktop;
    return instance;
}

} // namespace

Desktop& desktop()
{
    return *current();
}

ScopedDesktop::ScopedDesktop(Desktop& replacement)
    : m_previous(current())
{
    current() = &replacement;
}

ScopedDesktop::~ScopedDesktop()
{
    current() = m_previous;
}

} // namespace platform
