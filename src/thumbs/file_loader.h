#pragma once

#include "thumbs/delivered_icons.h"

class ThumbNailList;

namespace thumbs {

// Loads the files of a run into the scratch boxes P_load and fNX of its list. What can't be loaded
// leaves the picture or the badge of the file before.
class FileLoader {
public:
    explicit FileLoader(ThumbNailList& list)
        : m_list(list)
    {
    }

    // As a tile shows the file: the badge of its kind, and its own picture or one that stands for
    // it. The room is in pixels of the screen; a picture comes no larger than it takes. A reader
    // may show a box; the list may be gone afterwards.
    void loadTile(const QString& path, QSize room);

    // Whether only the program's own readers know the file's format, by its name.
    [[nodiscard]] static bool isOwnFormat(const QString& path);

    // The file itself, whole and without a badge, where the picture loader takes it.
    void loadWhole(const QString& path);
    // The same, no larger than the room takes.
    void loadFitting(const QString& path, QSize room);

private:
    void loadIcon(const QString& file);

    ThumbNailList& m_list;
    DeliveredIcons m_icons;
};

} // namespace thumbs
