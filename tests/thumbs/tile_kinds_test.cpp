#include "thumbs/tile_kinds.h"

#include <gtest/gtest.h>

using thumbs::badgeFile;
using thumbs::iconFile;
using thumbs::TileKind;
using thumbs::tileKindFor;
using thumbs::TileSource;

namespace {

struct Expected {
    const char* extension;
    const char* badge;
    TileSource source;
    const char* icon;
};

constexpr Expected kExpected[] = {
    {"swf", "Images/swf.ico", TileSource::Icon, "Images/flashbg.ico"},
    {"bmp", "Images/bmp.ico", TileSource::File, ""},
    {"jpg", "Images/jpg.ico", TileSource::File, ""},
    {"gif", "Images/gif.ico", TileSource::File, ""},
    {"ico", "Images/ico.ico", TileSource::File, ""},
    {"wmf", "Images/wmf.ico", TileSource::File, ""},
    {"psd", "Images/psd.ico", TileSource::OwnDecoder, ""},
    {"html", "Images/html.ico", TileSource::Icon, "Images/htmlbg.ico"},
    {"htm", "Images/html.ico", TileSource::Icon, "Images/htmlbg.ico"},
    {"mpeg", "Images/mpeg.ico", TileSource::Icon, "Images/playbg.ico"},
    {"mp3", "Images/mp3.ico", TileSource::Icon, "Images/mp3bg.ico"},
    {"avi", "Images/avi.ico", TileSource::Icon, "Images/playbg.ico"},
    {"asf", "Images/asf.ico", TileSource::Icon, "Images/playbg.ico"},
    {"dat", "Images/vcd.ico", TileSource::Icon, "Images/vcddvdbg.ico"},
    {"vod", "Images/dvd.ico", TileSource::Icon, "Images/vcddvdbg.ico"},
    {"pcx", "Images/pcx.ico", TileSource::OwnDecoder, ""},
    {"tga", "Images/tga.ico", TileSource::OwnDecoder, ""},
    {"lbm", "Images/lbm.ico", TileSource::OwnDecoder, ""},
    {"bbm", "Images/bbm.ico", TileSource::OwnDecoder, ""},
};

} // namespace

TEST(TileKinds, KnowsBadgeAndPictureOfEachExtension)
{
    for (const Expected& row : kExpected) {
        const TileKind& kind = tileKindFor(QString(row.extension));
        EXPECT_EQ(badgeFile(kind, false), row.badge) << row.extension;
        EXPECT_EQ(kind.source, row.source) << row.extension;
        if (row.source == TileSource::Icon) {
            EXPECT_EQ(iconFile(kind), row.icon) << row.extension;
        }
    }
}

TEST(TileKinds, GivesEverythingElseTheLastRow)
{
    for (const char* extension : {"jpeg", "jif", "tif", "iff", "emf", "cur", "ani", "icl", "did",
                                  "rlf", "hta", "vcd", "dvd", "JPG", "readme", ""}) {
        const TileKind& kind = tileKindFor(QString(extension));
        EXPECT_EQ(badgeFile(kind, false), "Images/nof.ico") << extension;
        EXPECT_EQ(iconFile(kind), "Images/nofbg.ico") << extension;
        EXPECT_EQ(kind.source, TileSource::Icon) << extension;
    }
}

TEST(TileKinds, GivesJpgAndGifANeutralBadgeInTheFrameComposer)
{
    EXPECT_EQ(badgeFile(tileKindFor(u"jpg"), true), "Images/noName.ico");
    EXPECT_EQ(badgeFile(tileKindFor(u"gif"), true), "Images/noName.ico");
    EXPECT_EQ(badgeFile(tileKindFor(u"bmp"), true), "Images/bmp.ico");
    EXPECT_EQ(badgeFile(tileKindFor(u"jpeg"), true), "Images/nof.ico");
}
