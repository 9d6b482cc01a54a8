#include "thumbs/bar_texts.h"

#include <gtest/gtest.h>

using thumbs::closingText;
using thumbs::runningText;

TEST(BarTexts, TellsThePageAndPictureUnderWay)
{
    EXPECT_EQ(runningText(1, {0, 0, 10, 60}), " Pagina 1 Afbeelding: 1 van: 10  ThumbSize:60 x 60");
    EXPECT_EQ(runningText(0, {2, 48, 70, 100}),
              " Page 3 picture: 49 from: 70  ThumbSize:100 x 100");
}

TEST(BarTexts, ClosesWithThePlaceBehindTheLastPicture)
{
    EXPECT_EQ(closingText(1, {0, 10, 10, 60}),
              " Pagina: 0 Afbeelding: 11 van: 10  Tijd:  ThumbSize:60 x 60");
    EXPECT_EQ(closingText(0, {3, 5, 80, 60}),
              " Page: 3 Picture: 6 from: 80  Tijd:  ThumbSize:60 x 60");
}

TEST(BarTexts, TellsNoTileSizeForSheets)
{
    EXPECT_EQ(runningText(1, {0, 0, 10}), " Pagina 1 Afbeelding: 1 van: 10");
    EXPECT_EQ(closingText(0, {3, 5, 80}), " Page: 3 Picture: 6 from: 80  Tijd:");
}

TEST(BarTexts, HasNoTextInOtherLanguages)
{
    EXPECT_EQ(runningText(2, {}), std::nullopt);
    EXPECT_EQ(closingText(-1, {}), std::nullopt);
}
