#include "thumbs/thumbnail_properties.h"

#include <gtest/gtest.h>

using core::PropertyBag;
using thumbs::applyPreset;
using thumbs::propertyRows;
using thumbs::readProperties;
using thumbs::ThumbnailProperties;
using thumbs::writeProperties;

namespace {

struct Expected {
    const char* name;
    QVariant fallback;
};

const Expected kExpected[] = {
    {"Path", ""},
    {"ThumbPage_FrameColor", 0x404040},
    {"InfoBackColor", 0x000000},
    {"InfoForeColor", 0x008080},
    {"InfobarVisible", true},
    {"Language", 1},
    {"CompressToJPG", true},
    {"Compress_NO_GIF", true},
    {"Print_NrThumbCols", 5},
    {"Print_Zoomfactor", 100},
    {"PrintResolution", 200},
    {"ThumbNailSize", 60},
    {"ThumbNailColor", 0x808080},
    {"ThumbPageColor", 0x000000},
    {"ThumbNailSelectColor", 0x00FF00},
    {"ThumbNailBorderColor", 0x000000},
    {"ThumbPageColorPresets", 0},
    {"Html_ThumbnailBorderThicknes", 0},
    {"Html_ThumbnailSize", 200},
    {"Html_ThumbnailBorderColor", 0x808080},
    {"Html_PageBackcolor", 0x353535},
    {"Html_PageForecolor", 0x808080},
    {"Html_PageLineColor", 0x330099},
    {"Html_PageLinkColor", 0xC0C0C0},
    {"Html_PageLinkHoverForeColor", 0xFFFFFF},
    {"Html_PageLinkHoverBackColor", 0x330099},
    {"Html_PageFotoframeBackColor", 0x575757},
    {"Html_PageFotoframeBorderColor", 0x808080},
    {"Html_PageFotoLinkstyle", 0},
    {"Html_PageColorPresets", 0},
    {"AutoUpdateOnPathchange", false},
    {"FloodFillColor", 0x0000FF},
    {"MaxThumbnailpages", 100},
    {"ThumbnailExtraWidth", 0},
    {"ThumbnailExtraHeight", 0},
};

QVariant valueOf(const ThumbnailProperties& properties, const thumbs::PropertyRow& row)
{
    return std::visit(
        [&](auto field) -> QVariant {
            using Value = std::decay_t<decltype(properties.*field)>;
            if constexpr (std::is_same_v<Value, base::Colour>) {
                return static_cast<int>(properties.*field);
            } else if constexpr (std::is_same_v<Value, std::int16_t>) {
                return int{properties.*field};
            } else {
                return QVariant(properties.*field);
            }
        },
        row.field);
}

} // namespace

TEST(ThumbnailProperties, StandInOrderWithTheirDefaults)
{
    const ThumbnailProperties fresh;
    ASSERT_EQ(propertyRows().size(), std::size(kExpected));
    for (std::size_t i = 0; i < std::size(kExpected); ++i) {
        const thumbs::PropertyRow& row = propertyRows()[i];
        EXPECT_STREQ(row.name, kExpected[i].name);
        EXPECT_EQ(valueOf(fresh, row), kExpected[i].fallback) << row.name;
    }
}

TEST(ThumbnailProperties, LeaveOutWhatEqualsTheDefault)
{
    PropertyBag bag;
    writeProperties({}, bag);
    EXPECT_TRUE(bag.values().empty());

    ThumbnailProperties changed;
    changed.ThumbNailSize = 100;
    changed.InfobarVisible = false;
    writeProperties(changed, bag);
    EXPECT_EQ(bag.values().size(), 2U);
    changed.ThumbNailSize = 60;
    writeProperties(changed, bag);
    EXPECT_EQ(bag.values().count("ThumbNailSize"), 0U);
}

TEST(ThumbnailProperties, ComeBackAsTheyWere)
{
    ThumbnailProperties before;
    before.Path = "/pictures/ä";
    before.ThumbPage_FrameColor = 0x8000000F;
    before.Language = 0;
    before.Print_NrThumbCols = 7;
    before.PrintResolution = "draft";
    before.AutoUpdateOnPathchange = true;
    before.ThumbnailExtraHeight = -3;
    PropertyBag bag;
    writeProperties(before, bag);

    const ThumbnailProperties after = readProperties(bag);
    for (const thumbs::PropertyRow& row : propertyRows()) {
        EXPECT_EQ(valueOf(after, row), valueOf(before, row)) << row.name;
    }
}

TEST(ThumbnailProperties, ReadMissingAndUnfitValuesAsTheDefault)
{
    PropertyBag bag;
    bag.write("Print_NrThumbCols", 40000, 5);
    bag.write("Language", 70000, 1);
    bag.write("ThumbNailSize", "large", 60);
    bag.write("InfobarVisible", "maybe", true);
    const ThumbnailProperties read = readProperties(bag);
    EXPECT_EQ(read.Print_NrThumbCols, 5);
    EXPECT_EQ(read.Language, 1);
    EXPECT_EQ(read.ThumbNailSize, 60);
    EXPECT_TRUE(read.InfobarVisible);
}

TEST(ColourPresets, SetFiveColours)
{
    constexpr base::Colour kColours[6][5] = {
        {0xFFFFFF, 0xFFFFFF, 0x000000, 0x3A4228, 0x00FFFF},
        {0xFFFFFF, 0xFFFFFF, 0x575757, 0x999999, 0x00FF00},
        {0xFFFFFF, 0xFFFFFF, 0xC0C0C0, 0x404040, 0x00FF00},
        {0xFFFFFF, 0xFFFFFF, 0xE0E0E0, 0xFFFFFF, 0x0000FF},
        {0xFFFFFF, 0xFFFFFF, 0xE0E0E0, 0xC0C0C0, 0x000000},
        {0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xC0C0C0, 0x000000},
    };
    for (int preset = 1; preset <= 6; ++preset) {
        ThumbnailProperties p;
        EXPECT_TRUE(applyPreset(p, preset));
        const base::Colour(&expected)[5] = kColours[preset - 1];
        EXPECT_EQ(p.ThumbPage_FrameColor, expected[0]) << preset;
        EXPECT_EQ(p.ThumbPageColor, expected[1]) << preset;
        EXPECT_EQ(p.ThumbNailColor, expected[2]) << preset;
        EXPECT_EQ(p.ThumbNailBorderColor, expected[3]) << preset;
        EXPECT_EQ(p.ThumbNailSelectColor, expected[4]) << preset;
    }
}

TEST(ColourPresets, SetNothingForOtherNumbers)
{
    for (const int preset : {0, 7, -1}) {
        ThumbnailProperties p;
        EXPECT_FALSE(applyPreset(p, preset));
        EXPECT_EQ(p.ThumbPage_FrameColor, 0x404040U);
        EXPECT_EQ(p.ThumbNailColor, 0x808080U);
    }
}
