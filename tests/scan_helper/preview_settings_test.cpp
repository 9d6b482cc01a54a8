#include "scan_helper/preview_settings.h"

#include <gtest/gtest.h>

using platform::ScanOption;
using platform::ScanRole;
using scan_helper::previewSettings;
using scan_helper::settingsBefore;

namespace {

ScanOption range(ScanRole role, double least, double most, double value)
{
    ScanOption option;
    option.role = role;
    option.least = least;
    option.most = most;
    option.value.number = value;
    return option;
}

ScanOption list(ScanRole role, std::vector<double> numbers, double value)
{
    ScanOption option;
    option.role = role;
    option.numbers = std::move(numbers);
    option.value.number = value;
    return option;
}

double resolutionFor(const ScanOption& option)
{
    const auto settings = previewSettings({option});
    return settings.empty() ? option.value.number : settings[0].value.number;
}

} // namespace

TEST(PreviewSettings, TakeTheWholeBed)
{
    const auto settings =
        previewSettings({range(ScanRole::Left, 2, 200, 50), range(ScanRole::Top, 0, 300, 0),
                         range(ScanRole::Right, 2, 200, 60), range(ScanRole::Bottom, 0, 300, 70)});
    ASSERT_EQ(settings.size(), 3U); // the top is there already
    EXPECT_EQ(settings[0].value.number, 2);
    EXPECT_EQ(settings[1].value.number, 200);
    EXPECT_EQ(settings[2].value.number, 300);
}

TEST(PreviewSettings, TakeTheLowestResolutionThatIsEnough)
{
    EXPECT_EQ(resolutionFor(range(ScanRole::Resolution, 1, 1200, 600)), 75);
    EXPECT_EQ(resolutionFor(range(ScanRole::Resolution, 100, 1200, 600)), 100);
    EXPECT_EQ(resolutionFor(range(ScanRole::Resolution, 1, 50, 10)), 50);
    EXPECT_EQ(resolutionFor(list(ScanRole::Resolution, {600, 50, 100, 300}, 600)), 100);
    EXPECT_EQ(resolutionFor(list(ScanRole::Resolution, {30, 60}, 30)), 60);
}

TEST(PreviewSettings, LeaveDepthsWithoutEightBitsAndOtherOptions)
{
    EXPECT_EQ(previewSettings({list(ScanRole::Depth, {1, 8, 16}, 16)})[0].value.number, 8);
    EXPECT_TRUE(previewSettings({list(ScanRole::Depth, {1, 16}, 16)}).empty());
    EXPECT_TRUE(previewSettings({range(ScanRole::Brightness, -100, 100, 5)}).empty());
}

TEST(PreviewSettings, ComeBackToWhatWasBefore)
{
    const std::vector<ScanOption> options{range(ScanRole::Left, 0, 200, 50),
                                          range(ScanRole::Resolution, 1, 1200, 600)};
    const auto before = settingsBefore(previewSettings(options), options);
    ASSERT_EQ(before.size(), 2U);
    EXPECT_EQ(before[0].role, ScanRole::Left);
    EXPECT_EQ(before[0].value.number, 50);
    EXPECT_EQ(before[1].value.number, 600);
}
