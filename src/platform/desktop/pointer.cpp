#include "platform/desktop/pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace platform {

namespace {

Pointer g_pointer = Pointer::Default;

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

} // namespace

void setPointer(Pointer pointer)
{
    if (pointer == g_pointer) {
        return;
    }
    const bool overridden = g_pointer != Pointer::Default;
    g_pointer = pointer;
    if (pointer == Pointer::Default) {
        QGuiApplication::restoreOverrideCursor();
    } else if (overridden) {
        QGuiApplication::changeOverrideCursor(QCursor(shapeOf(pointer)));
    } else {
        QGuiApplication::setOverrideCursor(QCursor(shapeOf(pointer)));
    }
}

Pointer pointer()
{
    return g_pointer;
}

} // namespace platform
