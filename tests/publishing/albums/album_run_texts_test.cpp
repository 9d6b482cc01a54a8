#include "publishing/albums/album_run_texts.h"

#include <gtest/gtest.h>

using albums::RunStage;

TEST(AlbumRunTexts, TellStageAndPlaceInBothLanguages)
{
    EXPECT_EQ(albums::stageText(1, RunStage::FullPicture, 3, 20),
              " Bezig met comprimeren naar jpg formaat, afbeelding: 3 van: 20");
    EXPECT_EQ(albums::stageText(0, RunStage::DetailPage, 1, 1),
              " Creating html Detail pages, processing Picture: 1 from: 1");
    EXPECT_EQ(albums::doneText(1), " Klaar !!");
    EXPECT_EQ(albums::doneText(0), " All done !!");
}

TEST(AlbumRunTexts, HaveNoOtherLanguage)
{
    EXPECT_EQ(albums::stageText(2, RunStage::MasterRow, 1, 1), std::nullopt);
    EXPECT_EQ(albums::doneText(-1), std::nullopt);
}
