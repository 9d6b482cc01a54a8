#include "files/explorer/root_listing.h"

#include "files/explorer/fake_places.h"

#include <gtest/gtest.h>

using files::FakePlaces;
using files::HiddenPlaces;
using files::ImageRole;
using files::listRoot;
using files::ListRows;
using files::PercentOf;
using files::RootType;
using files::RowTag;

namespace {

struct Line {
    QString key;
    QString text;
    ImageRole image;
    RowTag tag;

    bool operator==(const Line&) const = default;
};

void PrintTo(const Line& line, std::ostream* stream)
{
    *stream << line.key.toStdString() << " | " << line.text.toStdString() << " | "
            << static_cast<int>(line.image) << " | " << static_cast<int>(line.tag);
}

std::vector<Line> lines(const ListRows& rows)
{
    std::vector<Line> result;
    for (int row = 0; row < rows.count(); ++row) {
        result.push_back({rows.key(row), rows.text(row), rows.image(row), rows.tag(row)});
    }
    return result;
}

struct Listed {
    std::vector<Line> lines;
    std::vector<int> told;
};

Listed list(RootType type, const files::Places& places, const HiddenPlaces& hidden = {})
{
    Listed listed;
    const auto tell = [&](int percent) { listed.told.push_back(percent); };
    listed.lines = lines(listRoot(type, places, hidden, tell));
    return listed;
}

} // namespace

TEST(RootListing, HasThePlacesOfTheWorkSpace)
{
    const FakePlaces places;
    const Listed listed = list(RootType::WorkSpace, places);
    const std::vector<Line> expected = {
        {"Root_MyComputer", "My Computer", ImageRole::MyComputer, RowTag::Root},
        {"/run/user/1/gvfs", "Network", ImageRole::Network, RowTag::Root},
        {"Root_ControlPanel", "Control Panel", ImageRole::ControlPanel, RowTag::Root},
    };
    EXPECT_EQ(listed.lines, expected);
    EXPECT_EQ(listed.told, std::vector<int>());
    EXPECT_EQ(list(RootType::WorkSpace, places, {true, true, true, true}).lines,
              std::vector<Line>({expected[0]}));
}

TEST(RootListing, NamesDrivesByTheirTypes)
{
    FakePlaces places;
    places.driveList.push_back({"F:", platform::DriveType::Removable, "Stick", "", true});
    places.driveList.push_back({"G:", platform::DriveType::Disc, "Holiday", "", true});
    places.driveList.push_back({"/data", platform::DriveType::Fixed, "Data", "", true});
    places.driveList.push_back({"H:", platform::DriveType::Unknown, "Odd", "", true});
    const std::vector<Line> expected = {
        {"C:/", "Local Disk (C:)", ImageRole::FixedDrive, RowTag::Folder},
        {"D:/", " (D:)", ImageRole::DiscDrive, RowTag::Folder},
        {"E:/", "//host/share (E:)", ImageRole::NetworkDrive, RowTag::Folder},
        {"F:/", "Removable Disk (F:)", ImageRole::RemovableDrive, RowTag::Folder},
        {"G:/", "Holiday (G:)", ImageRole::DiscDrive, RowTag::Folder},
        {"/data/", "Data (/data)", ImageRole::FixedDrive, RowTag::Folder},
        {"H:/", " (H:)", ImageRole::Drive, RowTag::Folder},
    };
    EXPECT_EQ(list(RootType::MyComputer, places, {true, true, true, true}).lines, expected);
}

TEST(RootListing, PutsTheUsersFoldersBehindTheDrives)
{
    const FakePlaces places;
    const Listed listed = list(RootType::MyComputer, places);
    ASSERT_EQ(listed.lines.size(), 5U);
    const Line favorites = {"/home/me/Pictures", "Pictures", ImageRole::Favorites, RowTag::Folder};
    const Line documents = {"/home/me/My.Docs", "My", ImageRole::MyDocuments, RowTag::Folder};
    EXPECT_EQ(listed.lines[3], favorites);
    EXPECT_EQ(listed.lines[4], documents);
    EXPECT_EQ(listed.told, std::vector<int>({33, 67, 100, 0}));
    EXPECT_EQ(list(RootType::MyComputer, places, {true, false, false, false}).lines[3], documents);
}

TEST(RootListing, ShowsAFolderOnceThatPlaysTwoParts)
{
    FakePlaces places;
    places.documentsPath = places.favoritesPath;
    EXPECT_EQ(list(RootType::MyComputer, places).lines.size(), 4U);
}

TEST(RootListing, SortsTheAppletsAndDropsThoseWithoutAName)
{
    FakePlaces places;
    places.appletList = {{"/a/z.desktop", " sound "},
                         {"/a/n.desktop", "  "},
                         {"/a/m.desktop", "Mouse"},
                         {"/a/x.desktop", "fonts"}};
    const Listed listed = list(RootType::ControlPanel, places);
    const std::vector<Line> expected = {
        {"/a/x.desktop", "fonts", ImageRole::Applet, RowTag::File},
        {"/a/m.desktop", "Mouse", ImageRole::Applet, RowTag::File},
        {"/a/z.desktop", "sound", ImageRole::Applet, RowTag::File},
    };
    EXPECT_EQ(listed.lines, expected);
    EXPECT_EQ(listed.told, std::vector<int>({50, 100, 0}));
}

TEST(RootListing, HasTheDrivesOfTheDesktop)
{
    const ListRows rows = listRoot(RootType::MyComputer, files::desktopPlaces(), {}, [](int) {});
    ASSERT_GE(rows.count(), 1);
    EXPECT_EQ(rows.key(0), "/");
    EXPECT_TRUE(rows.text(0).endsWith(" (/)"));
}

TEST(PercentOf, StaysBetweenNothingAndAll)
{
    EXPECT_EQ(PercentOf(0, 0), 0);
    EXPECT_EQ(PercentOf(5, 4), 100);
    EXPECT_EQ(PercentOf(1, 3), 33);
    EXPECT_EQ(PercentOf(1, 8), 12);
    EXPECT_EQ(PercentOf(1, -1), 0);
}
