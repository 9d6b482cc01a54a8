#pragma once

#include "publishing/albums/album_folders.h"
#include "publishing/albums/album_pages.h"

#include <vector>

namespace albums {

// The pages of an album on their way to the disk: the master page when all its rows are known, then
// a page for each of them. A page is written whole or not at all, over what an album before has
// left; nobody is told of one that couldn't be written.
class AlbumRunPages {
public:
    AlbumRunPages(AlbumFolders folders, MasterTexts texts, PageMode mode);

    // The size is that of the full picture, of that bare name.
    void addRow(const MasterRow& row, const QString& full, QSize size);

    // False when there is none left.
    bool writeNext();
    [[nodiscard]] int rows() const { return static_cast<int>(m_rows.size()); }

    [[nodiscard]] const AlbumFolders& folders() const { return m_folders; }
    [[nodiscard]] const PageMode& mode() const { return m_mode; }
    [[nodiscard]] QString masterPath() const;

private:
    // What the page of a row needs.
    struct Row {
        QString detail; // bare names
        QString full;
        QSize size;
        QByteArray info;
    };

    void writeMaster();
    void writeDetail(int row);
    [[nodiscard]] QString detailName(int row) const;

    const AlbumFolders m_folders;
    const PageMode m_mode;
    MasterPage m_master;
    QByteArray m_masterText;
    std::vector<Row> m_rows;
    bool m_masterWritten = false;
    int m_detailsWritten = 0;
};

} // namespace albums
