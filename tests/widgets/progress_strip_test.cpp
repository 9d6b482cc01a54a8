#include "widgets/progress_strip.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr base::Colour kRed = 0x0000FF;
constexpr base::Colour kGrey = 0xC0C0C0;

class ProgressStripTest : public testing::Test {
protected:
    ProgressStripTest() { m_strip.resize(100, 3); }

    // The pixels from the left that have a colour of their own.
    int filled()
    {
        const QImage image = m_strip.grab().toImage();
        int pixels = 0;
        while (pixels < image.width() && image.pixelColor(pixels, 1) != QColor(0xE0, 0xE0, 0xE0)) {
            ++pixels;
        }
        return pixels;
    }

    widgets::ProgressStrip m_strip;
};

} // namespace

TEST_F(ProgressStripTest, IsHiddenAndEmptyAtFirst)
{
    EXPECT_TRUE(m_strip.isHidden());
    EXPECT_EQ(filled(), 0);
}

TEST_F(ProgressStripTest, FillsFromTheLeftToTheFraction)
{
    m_strip.fill(0.25, kRed);
    EXPECT_EQ(filled(), 25);
    EXPECT_EQ(m_strip.grab().toImage().pixelColor(24, 0), QColor(255, 0, 0));
    m_strip.fill(0.1, kRed);
    EXPECT_EQ(filled(), 10);
}

TEST_F(ProgressStripTest, KeepsToItsWidth)
{
    m_strip.fill(1.5, kRed);
    EXPECT_EQ(filled(), 100);
    m_strip.fill(-1, kRed);
    EXPECT_EQ(filled(), 0);
}

TEST_F(ProgressStripTest, PassesOverWhatIsNoFraction)
{
    m_strip.fill(0.5, kRed);
    m_strip.fill(std::numeric_limits<double>::quiet_NaN(), kRed);
    EXPECT_EQ(filled(), 50);
}

TEST_F(ProgressStripTest, TakesABackground)
{
    m_strip.setBackground(kGrey);
    EXPECT_EQ(m_strip.grab().toImage().pixelColor(99, 2), QColor(0xC0, 0xC0, 0xC0));
}

TEST_F(ProgressStripTest, IsEmptyWhenItIsShownAgain)
{
    m_strip.showStrip(true);
    m_strip.fill(0.5, kRed);
    m_strip.showStrip(false);
    EXPECT_TRUE(m_strip.isHidden());
    m_strip.showStrip(true);
    EXPECT_TRUE(m_strip.isVisible());
    EXPECT_EQ(filled(), 0);
}

TEST_F(ProgressStripTest, ShowsForWorkThatLetsNoEventsRunUntilItIsDone)
{
    m_strip.fillAtOnce(0.5, kRed);
    EXPECT_TRUE(m_strip.isVisible());
    EXPECT_EQ(filled(), 50);
    m_strip.fillAtOnce(1, kRed);
    EXPECT_TRUE(m_strip.isHidden());
}

TEST_F(ProgressStripTest, StaysForALongerRunAround)
{
    m_strip.showStrip(true);
    m_strip.fillAtOnce(0.5, kRed);
    m_strip.fillAtOnce(1, kRed);
    EXPECT_TRUE(m_strip.isVisible());
}
