#include "platform/desktop/pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace platform {

namespace {

Pointer g_set = Pointer::Default;
Pointer g_shown = Pointer::Default;
int g_waits = 0;

Qt::CursorShape shapeOf(Pointer pointer)
{
    switch (pointer) {
    case Pointer::SizeNS:
        return Qt::SizeVerCursor;
    case Pointer::HourGlass:
        return Qt::WaitCursor;
    case Pointer::ArrowHourGlass:
        return Qt::BusyCursor;
    case Pointer::Default:
        break;
    }
    return Qt::ArrowCursor;
}

void show(Pointer pointer)
{
    if (pointer == g_shown) {
        return;
    }
    const bool overridden = g_shown != Pointer::Default;
    g_shown = pointer;
    if (pointer == Pointer::Default) {
        QGuiApplication::restoreOverrideCursor();
    } else if (overridden) {
        QGuiApplication::changeOverrideCursor(QCursor(shapeOf(pointer)));
    } else {
        QGuiApplication::setOverrideCursor(QCursor(shapeOf(pointer)));
    }
}

void showWhatHolds()
{
    show(g_set == Pointer::Default && g_waits > 0 ? Pointer::HourGlass : g_set);
}

} // namespace

void setPointer(Pointer pointer)
{
    g_set = pointer;
    showWhatHolds();
}

Pointer pointer()
{
    return g_shown;
}

PointerGuard::PointerGuard(Pointer shape)
    : m_before(g_set)
{
    setPointer(shape);
}

PointerGuard::~PointerGuard()
{
    setPointer(m_before);
}

PointerWait::PointerWait()
{
    ++g_waits;
    showWhatHolds();
}

PointerWait::~PointerWait()
{
    --g_waits;
    showWhatHolds();
}

} // namespace platform
