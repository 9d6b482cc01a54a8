#pragma once

#include <QString>

namespace core {

// A window that plays or shows a file: the Flash, media and web windows implement it beside
// QWidget.
class PlayerWindow {
public:
    virtual ~PlayerWindow() = default;

    // Takes the file and plays it. The window may still be hidden.
    virtual void openPath(const QString& path) = 0;

    // A step of the mouse wheel while the window has marked itself active.
    virtual void wheelStep(int /*code*/) {}
};

} // namespace core
