#include "core/state.h"
#include "formats/hooks.h"
#include "platform/pictures/own_format_files.h"
#include "platform/pictures/picture_loader.h"
#include "support/temp_tree.h"
#include "test_pictures.h"
#include "viewer/own_format_show.h"
#include "viewer_main_window.h"

#include <gtest/gtest.h>

namespace {

class OwnFormatShow : public testing::Test {
protected:
    OwnFormatShow()
        : tree({{"pics/a.pcx", test::pcxFile(12, 5)},
                {"pics/wide.pcx", test::pcxFile(40, 8)},
                {"pics/three.tif", "abc"},
                {"pics/empty.tga", ""}})
    {
        core::state() = {};
    }
    ~OwnFormatShow() override { core::state() = {}; }

    support::TempTree tree;
    ViewerMainWindow main;
};

TEST_F(OwnFormatShow, ShowsTheFileThroughTheWorkingFile)
{
    viewer::showOwnFormat(main, tree.path("pics/a.pcx"));
    EXPECT_EQ(main.image1.width(), 12);
    EXPECT_EQ(main.image1.height(), 5);
    EXPECT_EQ(main.picture.PictureWidth(), 12);
    EXPECT_EQ(main.picture.PictureHeight(), 5);
    const auto saved = platform::loadPicture(tree.path("app/temp.bmp"));
    ASSERT_TRUE(saved.has_value());
    for (int i = 0; i < 60; ++i) {
        const QRgb colour = qRgb(i, 255 - i, i / 2);
        EXPECT_EQ(saved->image().pixel(i % 12, i / 12), colour);
        EXPECT_EQ(main.picture.Picture().image().pixel(i % 12, i / 12), colour);
        EXPECT_EQ(main.image1.surface().pixel(i % 12, i / 12), colour);
    }
}

TEST_F(OwnFormatShow, WritesTheSizePanelsUnderTheHourglass)
{
    viewer::showOwnFormat(main, tree.path("pics/a.pcx"));
    EXPECT_EQ(main.panels.panels[core::Panel::Width], "12      Pixel");
    EXPECT_EQ(main.panels.panels[core::Panel::Height], "5      Pixel");
    EXPECT_EQ(main.panels.pointer, platform::Pointer::HourGlass);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(OwnFormatShow, DropsThePictureThatStoodOnTheBox)
{
    main.image1.setPicture(plainPicture(70, 70));
    viewer::showOwnFormat(main, tree.path("pics/a.pcx"));
    EXPECT_TRUE(main.image1.picture().isNothing());
    EXPECT_EQ(main.image1.width(), 12);
}

TEST_F(OwnFormatShow, ClearsTheBoxBeforeItReadsTheFile)
{
    // Three raw planes; the reader misses a fourth and says so while it reads.
    const std::string header("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\0\1\0\0\0\2\0\10\0\3", 26);
    tree.add(
        {"pics/three.psd", header + std::string(14, '\0') + std::string("\377\377\0\0\0\0", 6)});
    main.image1.setPicture(plainPicture(70, 60));
    int reports = 0;
    formats::setHooks({[&](const char*) {
                           ++reports;
                           EXPECT_TRUE(main.image1.picture().isNothing());
                           EXPECT_EQ(main.image1.surface().pixel(35, 30), qRgb(255, 255, 255));
                       },
                       {}});
    viewer::showOwnFormat(main, tree.path("pics/three.psd"));
    formats::setHooks({});
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(main.image1.width(), 2);
    EXPECT_EQ(main.picture.Picture().image().pixel(1, 0), qRgb(255, 0, 0));
}

TEST_F(OwnFormatShow, ShowsThePreviousRecordForAFileThatNoReaderTakes)
{
    viewer::showOwnFormat(main, tree.path("pics/a.pcx"));
    for (const char* name : {"pics/three.tif", "pics/empty.tga", "pics/missing.psd"}) {
        main.picture.setPicture(plainPicture(33, 33));
        ASSERT_TRUE(platform::removeFile(tree.path("app/temp.bmp")));
        viewer::showOwnFormat(main, tree.path(name));
        EXPECT_EQ(main.picture.PictureWidth(), 12) << name;
        EXPECT_TRUE(tree.exists("app/temp.bmp")) << name;
    }
}

TEST_F(OwnFormatShow, LeavesEverythingWhenNothingWasEverDecoded)
{
    main.picture.setPicture(plainPicture(33, 33));
    viewer::showOwnFormat(main, tree.path("pics/three.tif"));
    EXPECT_EQ(main.picture.PictureWidth(), 33);
    EXPECT_EQ(main.image1.width(), 1);
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(OwnFormatShow, LeavesEverythingForASizeThatNoBoxTakes)
{
    for (const auto& [width, height] :
         {std::pair(-3, 5), std::pair(5, 0), std::pair(5, -2), std::pair(2000000000, 2000000000)}) {
        core::state().rawImage.Width = width;
        core::state().rawImage.Height = height;
        viewer::showOwnFormat(main, tree.path("pics/missing.psd"));
        EXPECT_EQ(main.image1.width(), 1);
        EXPECT_FALSE(tree.exists("app/temp.bmp"));
    }
}

TEST_F(OwnFormatShow, GoesOnWhereTheWorkingFileCannotBeWritten)
{
    tree.add({"app/temp.bmp/in the way", ""});
    main.picture.setPicture(plainPicture(33, 33));
    viewer::showOwnFormat(main, tree.path("pics/a.pcx"));
    EXPECT_EQ(main.picture.PictureWidth(), 33);
    EXPECT_EQ(main.panels.panels[core::Panel::Width], "33      Pixel");
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(OwnFormatShow, FollowsFilesOfDifferentSizes)
{
    for (const auto& [name, width] : {std::pair("pics/a.pcx", 12), std::pair("pics/wide.pcx", 40),
                                      std::pair("pics/a.pcx", 12)}) {
        viewer::showOwnFormat(main, tree.path(name));
        EXPECT_EQ(main.picture.PictureWidth(), width);
        EXPECT_EQ(main.image1.width(), width);
    }
}

} // namespace
