#pragma once

#include "publishing/albums/info_lines.h"

#include <QByteArray>
#include <QSize>
#include <QString>

// The pages of an album as text, each line with CR-LF at its end.
namespace albums {

inline constexpr QLatin1String kMasterPage("index.htm");

// Texts of the whole album. Those beside and below the title may hold tags.
struct MasterTexts {
    QString AlbumTitle;
    QString AlbumSubTitle; // "" for none
    QString AlbumSideText; // "" for none
};

// One picture on the master page.
struct MasterRow {
    QString detail;    // bare name of its page
    QString thumbnail; // bare name
    QSize size;        // of the thumbnail's file, in pixels
    QByteArray info;   // of infoLines()
};

// The master page in the pieces in which a run writes it.
class MasterPage {
public:
    MasterPage(MasterTexts texts, Writing writing);

    [[nodiscard]] QByteArray head();
    // The first one after the head takes the text at the side with it.
    [[nodiscard]] QByteArray row(const MasterRow& row);
    [[nodiscard]] static QByteArray tail();

private:
    [[nodiscard]] QByteArray sideCell() const;

    const MasterTexts m_texts;
    const Writing m_writing;
    bool SideCellDone = false;
};

// From a row to its page, as the master page sees it.
[[nodiscard]] QString detailLink(const QString& detail);

// The page of one picture.
struct DetailPage {
    QString picture;  // bare name of the full picture
    QSize size;       // of the full picture, in pixels
    QByteArray info;  // of infoLines()
    QString previous; // bare names of the pages beside it, "" at an end
    QString next;
};
[[nodiscard]] QByteArray detailPage(const DetailPage& page, const PageMode& mode);

} // namespace albums
