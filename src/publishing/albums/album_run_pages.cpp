#include "publishing/albums/album_run_pages.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <utility>

namespace albums {

AlbumRunPages::AlbumRunPages(AlbumFolders folders, MasterTexts texts, PageMode mode)
    : m_folders(std::move(folders))
    , m_mode(mode)
    , m_master(std::move(texts), mode.writing)
    , m_masterText(m_master.head())
{
}

void AlbumRunPages::addRow(const MasterRow& row, const QString& full, QSize size)
{
    m_masterText += m_master.row(row);
    m_rows.push_back({row.detail, full, size, row.info});
}

bool AlbumRunPages::writeNext()
{
    if (!m_masterWritten) {
        writeMaster();
        return true;
    }
    if (m_detailsWritten == rows()) {
        return false;
    }
    writeDetail(m_detailsWritten++);
    return true;
}

QString AlbumRunPages::masterPath() const
{
    return platform::joinPath(m_folders.album, kMasterPage);
}

void AlbumRunPages::writeMaster()
{
    static_cast<void>(platform::writeFileWhole(masterPath(), m_masterText + MasterPage::tail()));
    m_masterText.clear();
    m_masterWritten = true;
}

void AlbumRunPages::writeDetail(int row)
{
    const Row& written = m_rows[static_cast<std::size_t>(row)];
    const DetailPage page{written.full, written.size, written.info, detailName(row - 1),
                          detailName(row + 1)};
    static_cast<void>(platform::writeFileWhole(
        platform::joinPath(m_folders.originals, written.detail), detailPage(page, m_mode)));
}

// "" beyond the ends.
QString AlbumRunPages::detailName(int row) const
{
    return row >= 0 && row < rows() ? m_rows[static_cast<std::size_t>(row)].detail : QString();
}

} // namespace albums
