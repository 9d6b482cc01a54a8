#include "acquire/scan_settings.h"

#include <gtest/gtest.h>

using namespace acquire;
using platform::ScanOption;
using platform::ScanRole;
using platform::ScanUnit;

namespace {

ScanOption range(ScanRole role, ScanUnit unit, double least, double most, double value)
{
    ScanOption option;
    option.role = role;
    option.unit = unit;
    option.least = least;
    option.most = most;
    option.value.number = value;
    return option;
}

ScanOptions bed(ScanUnit unit, double resolution)
{
    return {range(ScanRole::Resolution, ScanUnit::DotsPerInch, 1, 1200, resolution),
            range(ScanRole::Left, unit, 0, 216, 10), range(ScanRole::Top, unit, 0, 297, 20),
            range(ScanRole::Right, unit, 0, 216, 110), range(ScanRole::Bottom, unit, 0, 297, 70)};
}

} // namespace

TEST(ScanSettings, OfferTheScannersNumbersOrTheUsualOnes)
{
    ScanOption resolution = range(ScanRole::Resolution, ScanUnit::DotsPerInch, 50, 400, 120);
    EXPECT_EQ(numbersToOffer(resolution), (std::vector<double>{75, 100, 120, 150, 200, 300, 400}));
    resolution.numbers = {600, 120, 300};
    EXPECT_EQ(numbersToOffer(resolution), (std::vector<double>{120, 300, 600}));
}

TEST(ScanSettings, BeginWithAResolutionWorthLookingAt)
{
    EXPECT_EQ(firstSettings(bed(ScanUnit::Millimetres, 50), {}).at(ScanRole::Resolution).number,
              150);
    EXPECT_TRUE(firstSettings(bed(ScanUnit::Millimetres, 75), {}).empty());
    const ScanSettings before{{ScanRole::Resolution, {{}, 50}}, {ScanRole::Mode, {"Gray", 0}}};
    EXPECT_EQ(firstSettings(bed(ScanUnit::Millimetres, 10), before), before);
    const ScanOptions coarse{range(ScanRole::Resolution, ScanUnit::DotsPerInch, 1, 60, 10)};
    EXPECT_EQ(firstSettings(coarse, {}).at(ScanRole::Resolution).number, 10);
}

TEST(ScanSettings, KnowBedAndArea)
{
    const ScanOptions options = bed(ScanUnit::Millimetres, 100);
    EXPECT_EQ(bedOf(options), QRectF(0, 0, 216, 297));
    EXPECT_EQ(areaOf(options), QRectF(10, 20, 100, 50));
    EXPECT_TRUE(bedOf({options[0]}).isEmpty());
    ScanOptions empty = options;
    empty[3].value.number = 10;
    EXPECT_EQ(areaOf(empty), bedOf(empty));
}

TEST(ScanSettings, ReckonTheSizeOfThePicture)
{
    const QRectF area(0, 0, 127, 25.4);
    EXPECT_EQ(pictureSize(bed(ScanUnit::Millimetres, 300), area), QSize(1500, 300));
    EXPECT_EQ(pictureSize(bed(ScanUnit::Pixels, 300), area), QSize(127, 25));
    EXPECT_EQ(pictureText(QSize(1024, 1024)), "1024 x 1024 pixels, 4.0 MB");
    EXPECT_EQ(pictureText(QSize()), "");
    EXPECT_TRUE(pictureSize(bed(ScanUnit::Millimetres, 1e300), QRectF(0, 0, 1e9, 1e9)).isValid());
}

TEST(ScanSettings, HaveATextForEachFailure)
{
    for (int why = 0; why < platform::kScanFailures; ++why) {
        EXPECT_FALSE(failureText(platform::ScanFailure(why)).isEmpty()) << why;
    }
    EXPECT_TRUE(failureText(platform::ScanFailure::Empty).contains("no picture"));
    EXPECT_TRUE(failureText(platform::ScanFailure::NoDocuments).contains("paper"));
}

TEST(ScanSettings, NameScannersAndNumbers)
{
    EXPECT_EQ(scannerText({"epson:1", "Epson", "V600", "flatbed"}), "Epson V600");
    EXPECT_EQ(scannerText({"epson:1", "", "", ""}), "epson:1");
    EXPECT_EQ(numberText(300, ScanUnit::DotsPerInch), "300 dpi");
    EXPECT_EQ(numberText(1, ScanUnit::Bits), "1 bit");
    EXPECT_EQ(numberText(16, ScanUnit::Bits), "16 bits");
    EXPECT_EQ(numberText(2.5, ScanUnit::None), "2.5");
}
