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

} // namespace platform
