#include "platform/os/delivered_files.h"

#include "support/temp_tree.h"

#include <gtest/gtest.h>

using support::TempTree;

TEST(DeliveredFiles, AreRecognisedBySettingsAndPictures)
{
    const TempTree tree(
        {{"whole/config.ini", "[A]\n"}, {"whole/Images/", ""}, {"half/config.ini", "[A]\n"}});
    EXPECT_TRUE(platform::holdsDeliveredFiles(tree.path("whole")));
    EXPECT_FALSE(platform::holdsDeliveredFiles(tree.path("half")));
    EXPECT_FALSE(platform::holdsDeliveredFiles(tree.path("none")));
}

TEST(DeliveredFiles, AreCopiedToAFolderThatLacksThem)
{
    const TempTree tree({{"from/config.ini", "[A]\n"},
                         {"from/Images/tiles/a.gif", "gif"},
                         {"from/Frame/FrameLib/f.bmp", "frame"},
                         {"from/vistara", "the executable"},
                         {"to/testfile.txt", "mine"}});
    platform::seedDeliveredFiles(tree.path("from"), tree.path("to"));
    EXPECT_EQ(tree.content("to/config.ini"), "[A]\n");
    EXPECT_EQ(tree.content("to/Images/tiles/a.gif"), "gif");
    EXPECT_EQ(tree.content("to/Frame/FrameLib/f.bmp"), "frame");
    EXPECT_EQ(tree.content("to/testfile.txt"), "mine");
    EXPECT_FALSE(tree.exists("to/vistara"));
    EXPECT_FALSE(tree.exists("to/Images.part"));
}

TEST(DeliveredFiles, OverwriteNothing)
{
    const TempTree tree({{"from/config.ini", "delivered"},
                         {"from/Images/a.gif", "gif"},
                         {"to/config.ini", "mine"}});
    platform::seedDeliveredFiles(tree.path("from"), tree.path("to"));
    EXPECT_EQ(tree.content("to/config.ini"), "mine");
    EXPECT_EQ(tree.content("to/Images/a.gif"), "gif");
}

TEST(DeliveredFiles, ComeOnceOnly)
{
    const TempTree tree({{"from/config.ini", "delivered"}, {"from/Images/a.gif", "gif"}});
    platform::seedDeliveredFiles(tree.path("from"), tree.path("to"));
    tree.remove("to/config.ini");
    platform::seedDeliveredFiles(tree.path("from"), tree.path("to"));
    EXPECT_FALSE(tree.exists("to/config.ini"));
}

TEST(DeliveredFiles, AreCompletedAfterACopyThatWasCutShort)
{
    const TempTree tree({{"from/config.ini", "delivered"},
                         {"from/Images/a.gif", "a"},
                         {"from/Images/b.gif", "b"},
                         {"to/Images.part/a.gif", "a"}});
    platform::seedDeliveredFiles(tree.path("from"), tree.path("to"));
    EXPECT_EQ(tree.content("to/Images/a.gif"), "a");
    EXPECT_EQ(tree.content("to/Images/b.gif"), "b");
}
