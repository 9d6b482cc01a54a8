#pragma once

#include "publishing/albums/page_text.h"

#include <QByteArray>
#include <QString>

namespace albums {

// How the pages of an album are written.
struct PageMode {
    int language = 1; // 1 Dutch, 0 English; any other gives no words
    Writing writing = Writing::Plain;
};

// Local date and time of a file's last change; "" for a file that isn't there.
[[nodiscard]] QString lastChange(const QString& path);

// What a page tells of a file: a name and a time, each a line with its end.
[[nodiscard]] QByteArray infoLines(const QString& name, const QString& time, const PageMode& mode);

} // namespace albums
