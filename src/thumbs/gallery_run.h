#pragma once

#include "thumbs/delivered_icons.h"
#include "thumbs/tile_kinds.h"

#include <QPointer>
#include <QString>

class ThumbNailList;

namespace core {
class ProgressStrip;
}

namespace thumbs {

// One run over the folder of a ThumbNailList: a tile for every file, painted into the list's pages.
// Its own counters stay its own when another run nests in it; pages, table, files and grid are the
// list's, and it then goes on with those of the other run.
class GalleryRun {
public:
    explicit GalleryRun(ThumbNailList& list);

    // Comes back when all files are done, at a cancel, or when the folder was refused.
    void run();

private:
    void begin();
    [[nodiscard]] bool acceptFolder();
    void refuse(int pages);
    void walk();
    [[nodiscard]] bool makeTile();
    void loadPicture(const QString& name, const QString& path);
    void writeBar();
    void turnPage();
    void drawTile(const QString& path);
    void moveOn();
    void showProgress();
    void finish();

    ThumbNailList& m_list;
    QPointer<ThumbNailList> m_alive;
    DeliveredIcons m_icons;
    QString m_folder; // with its separator
    int m_fileIndex = 0;
    int m_fileCount = 0;
    int m_pageIndex = 0;
    int m_tileColumn = 0;
    int m_tileRow = 0;
};

} // namespace thumbs
