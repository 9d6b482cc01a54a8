#include "editing/frames/frame_tiles.h"

#include "editing/frames/frame_fixture.h"

using namespace frametest;
using frames::Tile;

namespace {

// A bitmap's head that tells of a size and has no pixels behind it.
std::string bitmapOfSize(std::uint32_t width, std::uint32_t height)
{
    std::string bytes("BM", 2);
    const auto add = [&bytes](std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i) {
            bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
        }
    };
    for (const std::uint32_t value : {54U, 0U, 54U, 40U, width, height}) {
        add(value, 4);
    }
    add(1, 2);
    add(24, 2);
    for (int i = 0; i < 6; ++i) {
        add(0, 4);
    }
    return bytes;
}

} // namespace

TEST(FrameStyle, IsTheBeginningOfTheName)
{
    struct Case {
        const char* path;
        const char* style;
    };
    for (const Case& name :
         {Case{"/a/Frame/01 oak.jpg", "01"}, Case{"/a/ 7x.jpg", "7"}, Case{"/a/7 x.jpg", "7 "},
          Case{"/a/x", "x"}, Case{"/a/7.jpg", "7."}, Case{"/a/Äß gold.jpg", "Äß"},
          Case{"plain.jpg", "pl"}, Case{"/a/  x.jpg", ""}, Case{"", ""}}) {
        EXPECT_EQ(frames::styleOf(QString::fromUtf8(name.path)), QString::fromUtf8(name.style))
            << name.path;
    }
}

TEST(FrameTiles, AreSquaresOfTheSizeAskedFor)
{
    const support::TempTree tree;
    addStyle(tree, "01 plain.jpg", "01");
    save(test::filled(90, 20, 0xFF123456), tree.path(tileName(Top, "01")));
    frames::FrameTiles tiles("01", 7);
    EXPECT_EQ(tiles.at(Tile::Left).size(), QSize(7, 7));
    EXPECT_EQ(tiles.at(Tile::RightBottom).pixel(6, 6), colourOf(RightBottom));
    EXPECT_EQ(tiles.at(Tile::Top).size(), QSize(7, 7));
    EXPECT_EQ(tiles.at(Tile::Top).pixel(3, 3), 0xFF123456);
}

TEST(FrameTiles, AreReadOnce)
{
    const support::TempTree tree;
    addStyle(tree, "01 plain.jpg", "01");
    frames::FrameTiles tiles("01", 7);
    EXPECT_FALSE(tiles.at(Tile::Left).isNull());
    tree.remove(tileName(Left, "01"));
    tree.remove(tileName(Right, "01"));
    EXPECT_FALSE(tiles.at(Tile::Left).isNull());
    EXPECT_TRUE(tiles.at(Tile::Right).isNull());
    addStyle(tree, "01 plain.jpg", "01");
    EXPECT_TRUE(tiles.at(Tile::Right).isNull());
}

TEST(FrameTiles, HaveNoneForAFileThatIsNoPicture)
{
    const support::TempTree tree;
    addStyle(tree, "01 plain.jpg", "01");
    const std::string whole = tree.content(tileName(Left, "01"));
    for (const std::string& bytes :
         {std::string(), std::string("plastic"), std::string("\xFF\xD8\xFF\xE0"),
          whole.substr(0, 30), bitmapOfSize(100000, 100000), bitmapOfSize(0, 0)}) {
        tree.add({tileName(Left, "01"), bytes});
        EXPECT_TRUE(frames::FrameTiles("01", 20).at(Tile::Left).isNull()) << bytes.size();
    }
    tree.remove(tileName(Left, "01"));
    tree.add({tileName(Left, "01") + "/"});
    EXPECT_TRUE(frames::FrameTiles("01", 20).at(Tile::Left).isNull());
}

TEST(FrameTiles, AreFoundByNamesInEveryScript)
{
    const support::TempTree tree;
    addStyle(tree, "Äß gold.jpg", "Äß");
    EXPECT_FALSE(frames::FrameTiles(QStringLiteral("Äß"), 9).at(Tile::Left).isNull());
    EXPECT_TRUE(frames::FrameTiles(QString(QChar(0xD83D)), 9).at(Tile::Left).isNull());
    EXPECT_TRUE(frames::FrameTiles(QString(), 9).at(Tile::Left).isNull());
}
