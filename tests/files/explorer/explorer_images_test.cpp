#include "files/explorer/explorer_images.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

using files::ImageRole;

TEST(RoleRows, StandInTheOrderOfTheRoles)
{
    std::set<std::string> pictures;
    for (std::size_t i = 0; i < files::roleRows().size(); ++i) {
        const files::RoleRow& row = files::roleRows()[i];
        EXPECT_EQ(static_cast<std::size_t>(row.role), i);
        EXPECT_TRUE(pictures.insert(row.picture).second) << row.picture;
    }
    EXPECT_EQ(files::roleRows().back().role, ImageRole::Archive);
    EXPECT_EQ(files::roleName(ImageRole::MyComputer), "My Computer");
}

TEST(FileKinds, StandInOrderSoThatTheyAreFound)
{
    for (const files::FileKind& kind : files::fileKinds()) {
        const QString name = "a." + QString(kind.extension).toUpper();
        EXPECT_EQ(files::fileType(name), kind.type);
        EXPECT_EQ(files::fileImage(name), kind.image);
    }
}

TEST(FileKinds, NameWhatTheyDontKnowByItsExtension)
{
    EXPECT_EQ(files::fileType("a.b.xyz"), "XYZ File");
    for (const char* const name : {"plain", ".jpg", "dot.", ""}) {
        EXPECT_EQ(files::fileType(name), "File") << name;
        EXPECT_EQ(files::fileImage(name), ImageRole::File) << name;
    }
}
