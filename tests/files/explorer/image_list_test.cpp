#include "files/explorer/image_list.h"

#include "platform/os/paths.h"

#include <gtest/gtest.h>

using files::ImageList;
using files::ImageRole;

TEST(ImageList, NumbersKeysFromOneAndKnowsThemAgain)
{
    ImageList list;
    EXPECT_EQ(list.GetIconIndex("/p/a.jpg", ImageRole::Picture), 1);
    EXPECT_EQ(list.GetIconIndex("/p", ImageRole::Folder), 2);
    EXPECT_EQ(list.GetIconIndex("/p/a.jpg", ImageRole::Picture), 1);
    EXPECT_EQ(list.GetIconIndex("/P/A.JPG", ImageRole::Picture), 1);
    EXPECT_EQ(list.count(), 2);
}

TEST(ImageList, GivesEachKeyAnEntryOfItsOwn)
{
    ImageList list;
    EXPECT_EQ(list.GetIconIndex("/p/a.jpg", ImageRole::Picture), 1);
    EXPECT_EQ(list.GetIconIndex("/p/b.jpg", ImageRole::Picture), 2);
    EXPECT_EQ(list.role(1), list.role(2));
}

TEST(ImageList, ChangesTheImageOfAKeyThatBecameSomethingElse)
{
    ImageList list;
    list.GetIconIndex("/p/a", ImageRole::Folder);
    EXPECT_EQ(list.GetIconIndex("/p/a", ImageRole::File), 1);
    EXPECT_EQ(list.role(1), ImageRole::File);
}

TEST(ImageList, KeepsNamesThatAreNoTextApart)
{
    ImageList list;
    list.GetIconIndex(platform::fromNative("/p/\xE9"), ImageRole::File);
    EXPECT_EQ(list.GetIconIndex(platform::fromNative("/p/\xE8"), ImageRole::File), 2);
}
