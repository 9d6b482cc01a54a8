#pragma once

#include <QString>
#include <vector>

namespace platform {

// A program as the desktop's menu offers it.
struct MenuItem {
    QString file; // the .desktop file
    QString name; // in the user's language; "" where it has none
};

// The programs of a category that the desktop shows, in no order. The user's own files stand
// before the system's of the same name.
std::vector<MenuItem> menuItemsOf(const QString& category);

// Starts the program of a .desktop file; it goes on by itself. False where there is none.
[[nodiscard]] bool startMenuItem(const QString& file);

} // namespace platform
