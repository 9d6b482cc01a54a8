#include "thumbs/page_limit.h"

#include <gtest/gtest.h>

using thumbs::fullPages;
using thumbs::largestPassingSize;
using thumbs::tooManyPagesReport;

namespace {

const thumbs::TooManyPages kFacts{101, 100, 20, 60, 52, {260, 600}};

} // namespace

TEST(PageLimit, CountsFullPagesOnly)
{
    EXPECT_EQ(fullPages(10, 20), 0);
    EXPECT_EQ(fullPages(1000, 20), 50);
    EXPECT_EQ(fullPages(2019, 20), 100);
    EXPECT_EQ(fullPages(2020, 20), 101);
    EXPECT_EQ(fullPages(2020, 0), 0);
}

TEST(PageLimit, ProposesTheLargestSizeThatPasses)
{
    // 24 tiles a page at size 60; 27 at 51 (three columns of nine).
    EXPECT_EQ(largestPassingSize({260, 600}, 26 * 101, 60, 100), 51);
    EXPECT_EQ(largestPassingSize({260, 600}, 26 * 101, 51, 100), 50);
}

TEST(PageLimit, ProposesNothingWhereNoSizePasses)
{
    EXPECT_EQ(largestPassingSize({260, 600}, 10000000, 60, 100), std::nullopt);
    EXPECT_EQ(largestPassingSize({10, 0}, 10, 60, 100), std::nullopt);
}

TEST(PageLimit, ReportsInDutch)
{
    const auto report = tooManyPagesReport(1, kFacts);
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(report->title, "Te veel Thumbnailpagina's");
    EXPECT_EQ(
        report->text,
        "Er moeten te veel thumbnail pagina's gegenereerd worden!\r\n\r\n"
        "Berekend aantal pagina's = 101\r\n"
        "Aanbevolen maximum = 100 Pagina's\r\n\r\n"
        "Probeer het volgende: \r\n\r\n"
        "     1 > Beperk het aantal afbeeldingen per map in deze thumbnail en paginagrootte en "
        "tot 2000\r\n\r\n"
        "     2 > Of verklein de thumbnailgrootte van  60 x 60  naar  52 x 52  of "
        "kleiner\r\n\r\n"
        "     3 > Of vergroot het thumbnailwindow meer dan 260x600\r\n\r\n"
        "     4 > Een combinatie van [1] en [2] kan nog effectiever zijn  \r\n\r\n");
}

TEST(PageLimit, ReportsInEnglish)
{
    const auto report = tooManyPagesReport(0, kFacts);
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(report->title, "To mutch pages to generate");
    EXPECT_EQ(
        report->text,
        "There are to mutch pages to generate !\r\n\r\n"
        "Calculated pages = 101\r\n"
        "Recommended as maximum = 100 Pages\r\n\r\n"
        "Tri to: \r\n\r\n"
        "     1 > Reduce the number of files in a directory used with this thumbnail and page "
        "resolution to 2000\r\n\r\n"
        "     2 > Or decrease the current thumbsize from 60 x 60 to 52 x 52 or even smaller & "
        "vbCrLf\r\n"
        "     3 > Or Ingrease the size of the thumbnailwindow more then 260x600\r\n\r\n"
        "     4 > A combination of [1] and [2] may be even more effectieve \r\n\r\n");
}

TEST(PageLimit, LeavesTheSizeEmptyWhereNonePasses)
{
    thumbs::TooManyPages facts = kFacts;
    facts.passingSize = std::nullopt;
    EXPECT_TRUE(tooManyPagesReport(0, facts)->text.contains("from 60 x 60 to  x  or even smaller"));
}

TEST(PageLimit, HasNoReportInOtherLanguages)
{
    EXPECT_EQ(tooManyPagesReport(2, kFacts).has_value(), false);
}
