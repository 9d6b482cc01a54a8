#include "thumbs/page_limit.h"

#include "thumbs/tile_grid.h"

namespace thumbs {

namespace {

const QString kLine = QStringLiteral("\r\n");
const QString kBlankLine = QStringLiteral("\r\n\r\n");

struct Values {
    QString pages;
    QString limit;
    QString files; // that would fill the pages allowed
    QString size;
    QString passingSize;
    QString page;
};

Values valuesOf(const TooManyPages& facts)
{
    return {
        QString::number(facts.pages),
        QString::number(facts.limit),
        QString::number(std::int64_t{facts.limit} * facts.tilesPerPage),
        QString::number(facts.pictureSize),
        facts.passingSize ? QString::number(*facts.passingSize) : QString(),
        QString::number(facts.page.width()) + "x" + QString::number(facts.page.height()),
    };
}

QString dutchText(const Values& v)
{
    return "Er moeten te veel thumbnail pagina's gegenereerd worden!" + kBlankLine +
           "Berekend aantal pagina's = " + v.pages + kLine + "Aanbevolen maximum = " + v.limit +
           " Pagina's" + kBlankLine + "Probeer het volgende: " + kBlankLine +
           "     1 > Beperk het aantal afbeeldingen per map in deze thumbnail en paginagrootte"
           " en tot " +
           v.files + kBlankLine + "     2 > Of verklein de thumbnailgrootte van  " + v.size +
           " x " + v.size + "  naar  " + v.passingSize + " x " + v.passingSize + "  of kleiner" +
           kBlankLine + "     3 > Of vergroot het thumbnailwindow meer dan " + v.page + kBlankLine +
           "     4 > Een combinatie van [1] en [2] kan nog effectiever zijn  " + kBlankLine;
}

QString englishText(const Values& v)
{
    return "There are to mutch pages to generate !" + kBlankLine + "Calculated pages = " + v.pages +
           kLine + "Recommended as maximum = " + v.limit + " Pages" + kBlankLine +
           "Tri to: " + kBlankLine +
           "     1 > Reduce the number of files in a directory used with this thumbnail and page"
           " resolution to " +
           v.files + kBlankLine + "     2 > Or decrease the current thumbsize from " + v.size +
           " x " + v.size + " to " + v.passingSize + " x " + v.passingSize +
           " or even smaller & vbCrLf" + kLine +
           "     3 > Or Ingrease the size of the thumbnailwindow more then " + v.page + kBlankLine +
           "     4 > A combination of [1] and [2] may be even more effectieve " + kBlankLine;
}

} // namespace

int fullPages(int files, int tilesPerPage)
{
    return wholeQuotient(files, tilesPerPage).value_or(0);
}

std::optional<int> largestPassingSize(QSize page, int files, int presentSize, int limit)
{
    for (int size = presentSize - 1; size >= 0; --size) {
        const int step = kTileGap + kTileBorder + size;
        const int tiles = (page.width() / step) * (page.height() / step);
        const std::optional<int> pages = wholeQuotient(files, tiles);
        if (pages && *pages <= limit) {
            return size;
        }
    }
    return std::nullopt;
}

std::optional<Report> tooManyPagesReport(std::int32_t language, const TooManyPages& facts)
{
    const Values values = valuesOf(facts);
    switch (language) {
    case kDutch:
        return Report{dutchText(values), QStringLiteral("Te veel Thumbnailpagina's")};
    case kEnglish:
        return Report{englishText(values), QStringLiteral("To mutch pages to generate")};
    default:
        return std::nullopt;
    }
}

} // namespace thumbs
