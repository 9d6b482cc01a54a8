#pragma once

#include <QString>

namespace platform {

// The folder that the process stands in; "" where it has been removed.
QString currentFolder();

QString documentsFolder(); // as the desktop has set it; it may not exist

// Where the desktop shows the folders of other machines that are connected.
QString networkFolder();

} // namespace platform
