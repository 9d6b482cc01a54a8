#include "base/byte_reader.h"
#include "delivered_files.h"
#include "platform/pictures/picture_loader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

constexpr unsigned kIcon = 1;
constexpr unsigned kCursor = 2;

constexpr std::array kBadges{"swf", "bmp",  "jpg",  "noName", "gif", "ico", "wmf",
                             "psd", "html", "mpeg", "mp3",    "avi", "asf", "vcd",
                             "dvd", "pcx",  "tga",  "lbm",    "bbm", "nof"};
constexpr std::array kSymbols{"flashbg", "htmlbg", "playbg", "mp3bg", "vcddvdbg", "nofbg"};

// Sides of the images of an icon file, or nothing when an entry points outside the file or isn't
// square.
std::vector<int> sidesOf(const std::filesystem::path& path, unsigned kind)
{
    const std::vector<std::byte> bytes = delivered::bytesOf(path);
    const base::ByteReader reader(bytes);
    if (reader.little16At(0) != 0 || reader.little16At(2) != kind) {
        return {};
    }
    std::vector<int> sides;
    const unsigned count = reader.little16At(4);
    std::size_t bodiesEnd = 6 + count * std::size_t{16};
    for (std::size_t entry = 0; entry < count; ++entry) {
        const std::size_t at = 6 + entry * 16;
        const std::size_t length = reader.little32At(at + 8);
        if (reader.byteAt(at) != reader.byteAt(at + 1) || reader.little32At(at + 12) != bodiesEnd) {
            return {};
        }
        bodiesEnd += length;
        sides.push_back(reader.byteAt(at) == 0 ? 256 : reader.byteAt(at));
    }
    return bodiesEnd == reader.size() ? sides : std::vector<int>();
}

int opaquePixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y).alpha() == 255 ? 1 : 0;
        }
    }
    return count;
}

TEST(DeliveredIcons, BadgesFitTheCornerOfATile)
{
    for (const std::string name : kBadges) {
        EXPECT_EQ(sidesOf(delivered::picture(name + ".ico"), kIcon), (std::vector{16, 24})) << name;
    }
}

TEST(DeliveredIcons, BadgesLeaveTheRestOfTheTileVisible)
{
    for (const std::string name : kBadges) {
        const QImage badge = delivered::imageOf(delivered::picture(name + ".ico"), "ICO");
        ASSERT_FALSE(badge.isNull()) << name;
        EXPECT_GT(opaquePixels(badge), badge.width() * badge.height() / 8) << name;
        EXPECT_EQ(badge.pixelColor(badge.width() - 1, badge.height() - 1).alpha(), 0) << name;
    }
}

TEST(DeliveredIcons, EveryBadgeHasItsOwnLook)
{
    std::vector<QImage> seen;
    for (const std::string name : kBadges) {
        const QImage badge = delivered::imageOf(delivered::picture(name + ".ico"), "ICO");
        EXPECT_EQ(std::count(seen.begin(), seen.end(), badge), 0) << name;
        seen.push_back(badge);
    }
}

TEST(DeliveredIcons, SymbolsReachFromListSizeToTheLargestTile)
{
    for (const std::string name : kSymbols) {
        EXPECT_EQ(sidesOf(delivered::picture(name + ".ico"), kIcon),
                  (std::vector{16, 24, 32, 48, 64, 128}))
            << name;
        const QImage symbol = delivered::imageOf(delivered::picture(name + ".ico"), "ICO");
        EXPECT_EQ(symbol.pixelColor(0, 0).alpha(), 0) << name;
    }
}

TEST(DeliveredIcons, AreLoadedInTheirLargestSize)
{
    const auto loadedWidth = [](const std::string& name) {
        const std::string path = delivered::picture(name + ".ico").string();
        const auto picture = platform::loadPicture(QString::fromStdString(path));
        return picture ? picture->width() : 0;
    };
    for (const std::string name : kBadges) {
        EXPECT_EQ(loadedWidth(name), 24) << name;
    }
    for (const std::string name : kSymbols) {
        EXPECT_EQ(loadedWidth(name), 128) << name;
    }
}

TEST(DeliveredIcons, TheProgramsIconServesEveryDesktop)
{
    EXPECT_EQ(sidesOf(delivered::picture("vistara.ico"), kIcon),
              (std::vector{16, 24, 32, 48, 64, 128, 256}));
    const QImage large = delivered::imageOf(delivered::picture("vistara.png"), "PNG");
    EXPECT_EQ(large.size(), QSize(256, 256));
}

TEST(DeliveredIcons, TheSampleCursorPointsWithItsTip)
{
    const auto path = delivered::sample("Pencil.cur");
    EXPECT_EQ(sidesOf(path, kCursor), std::vector{32});
    const std::vector<std::byte> bytes = delivered::bytesOf(path);
    const base::ByteReader reader(bytes);
    const QPoint hotSpot(reader.little16At(10), reader.little16At(12));
    const QImage image = delivered::imageOf(path, "CUR");
    ASSERT_FALSE(image.isNull());
    EXPECT_GT(image.pixelColor(hotSpot).alpha(), 128);
}

} // namespace
