#pragma once

#include <QSize>
#include <QString>
#include <cstdint>
#include <optional>

// The rule that refuses a folder with too many pages, and the report about it.
namespace thumbs {

// Languages of the control's texts. Any other number selects none: the text is then left out.
inline constexpr std::int32_t kEnglish = 0;
inline constexpr std::int32_t kDutch = 1;

// Full pages only: a page that is filled in part isn't counted. 0 where no tile fits on a page.
[[nodiscard]] int fullPages(int files, int tilesPerPage);

// The largest picture size below the present one whose pages would keep to the limit. Extra tile
// sizes are left out of account.
[[nodiscard]] std::optional<int> largestPassingSize(QSize page, int files, int presentSize,
                                                    int limit);

struct TooManyPages {
    int pages = 0;
    int limit = 0;
    int tilesPerPage = 0;
    int pictureSize = 0;
    std::optional<int> passingSize;
    QSize page;
};

struct Report {
    QString text;
    QString title;
};

// Nothing for a language without texts.
[[nodiscard]] std::optional<Report> tooManyPagesReport(std::int32_t language,
                                                       const TooManyPages& facts);

} // namespace thumbs
