#pragma once

#include "thumbs/delivered_icons.h"
#include "thumbs/tile_grid.h"
#include "thumbs/tile_kinds.h"

#include <QPointer>
#include <QString>

class ThumbNailList;

namespace core {
class ProgressStrip;
}

namespace thumbs {

// One run over the folder of a ThumbNailList: a tile for every file, painted into the list's pages.
// Its own counters stay its own when another run nests in it; pages, table, folder, files and grid
// are the list's, and it then goes on with those of the other run, past the tiles that are there.
class GalleryRun {
public:
    explicit GalleryRun(ThumbNailList& list);

    // Comes back when all files are done, at a cancel, or when the folder was refused.
    void run();

private:
    void begin();
    void holdHost();
    [[nodiscard]] bool acceptFolder();
    void refuse(int pages);
    void walk();
    [[nodiscard]] bool makeTile();
    [[nodiscard]] bool hasTile(const QString& path, const TilePlace& place) const;
    void loadPicture(const QString& path);
    void writeBar();
    void turnTo(int page);
    void drawTile(const QString& path, const TilePlace& place);
    void showProgress();
    void finish();

    ThumbNailList& m_list;
    QPointer<ThumbNailList> m_alive;
    DeliveredIcons m_icons;
    int m_fileIndex = 0;
    int m_fileCount = 0;
    int m_pageIndex = 0;
};

} // namespace thumbs
