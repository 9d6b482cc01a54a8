#include "platform/devices/printed_paper.h"

#include <gtest/gtest.h>

namespace {

using platform::metricsOf;
using platform::Paper;
using platform::PaperMetrics;
using platform::PaperOrientation;
using platform::PaperSetting;

constexpr platform::PaperTraits kNoRim{{}, 254}; // ten pixels in a millimetre

QSize physical(const PaperMetrics& metrics)
{
    return {metrics.physicalWidth, metrics.physicalHeight};
}

TEST(PrintedPaper, KnowsThePapersByTheirNumbers)
{
    const auto sizeOf = [](int number) {
        return physical(metricsOf({.paper = Paper(number), .customMillimetres = {}}, kNoRim));
    };
    EXPECT_EQ(sizeOf(8), QSize(2970, 4200));
    EXPECT_EQ(sizeOf(9), QSize(2100, 2970));
    EXPECT_EQ(sizeOf(11), QSize(1480, 2100));
    EXPECT_EQ(sizeOf(-5), QSize(2100, 2970));
}

TEST(PrintedPaper, TakesOwnSizes)
{
    const auto sizeOf = [](double width, double height) {
        return metricsOf({.paper = Paper::Custom, .customMillimetres = {width, height}}, kNoRim);
    };
    EXPECT_EQ(physical(sizeOf(100, 62.5)), QSize(1000, 625));
    EXPECT_EQ(physical(sizeOf(10000, 10000)), QSize(100000, 100000));
    for (const PaperMetrics& none : {sizeOf(0, 100), sizeOf(100, 0), sizeOf(-210, -297),
                                     sizeOf(qQNaN(), 100), sizeOf(100, qInf()), sizeOf(1e9, 1e9)}) {
        EXPECT_TRUE(none.isEmpty());
        EXPECT_EQ(physical(none), QSize(0, 0));
    }
}

TEST(PrintedPaper, LeavesTheRimOutAndTurnsItWithThePaper)
{
    const platform::PaperTraits traits{{1, 2, 3, 4}, 254}; // left, top, right, bottom
    const PaperMetrics upright = metricsOf({}, traits);
    EXPECT_EQ(upright.physicalOffsetX, 10);
    EXPECT_EQ(upright.physicalOffsetY, 20);
    EXPECT_EQ(upright.innerWidth, 2100 - 40);
    EXPECT_EQ(upright.innerHeight, 2970 - 60);

    const PaperMetrics lying =
        metricsOf({.customMillimetres = {}, .orientation = PaperOrientation::Landscape}, traits);
    EXPECT_EQ(physical(lying), QSize(2970, 2100));
    EXPECT_EQ(lying.physicalOffsetX, 40);
    EXPECT_EQ(lying.physicalOffsetY, 30);
    EXPECT_EQ(lying.innerWidth, 2970 - 80);
    EXPECT_EQ(lying.innerHeight, 2100 - 60);
}

TEST(PrintedPaper, HasNoPaperWithinTheRim)
{
    const platform::PaperTraits wide{{60, 60, 60, 60}, 254};
    EXPECT_TRUE(
        metricsOf({.paper = Paper::Custom, .customMillimetres = {100, 300}}, wide).isEmpty());
}

TEST(PrintedPaper, CountsInTheQualityThatIsSet)
{
    const PaperMetrics metrics = metricsOf({.customMillimetres = {}, .dotsPerInch = 508}, kNoRim);
    EXPECT_EQ(metrics.logPixelsX, 508);
    EXPECT_EQ(metrics.logPixelsY, 508);
    EXPECT_EQ(metrics.physicalWidth, 4200);
}

} // namespace
