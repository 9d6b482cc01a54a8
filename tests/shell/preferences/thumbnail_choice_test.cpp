#include "shell/preferences/thumbnail_choice.h"

#include "support/fake_browser_pane.h"
#include "support/fake_main_window.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

// A main window whose runs over the folder let events run once.
class RunningMainWindow : public support::FakeMainWindow {
public:
    void ThumbNailSize(int menuIndex) override
    {
        FakeMainWindow::ThumbNailSize(menuIndex);
        letEventsRun();
    }
    void ThumbNailColor(int menuIndex) override
    {
        FakeMainWindow::ThumbNailColor(menuIndex);
        letEventsRun();
    }

    std::function<void()> duringNextRun;

private:
    void letEventsRun()
    {
        if (const auto event = std::exchange(duringNextRun, {})) {
            event();
        }
    }
};

class ThumbnailChoiceTest : public testing::Test {
protected:
    RunningMainWindow m_main;
    support::FakeBrowserPane m_pane{nullptr};
    preferences::ThumbnailChoice m_choice;
};

} // namespace

TEST_F(ThumbnailChoiceTest, IsAppliedOnce)
{
    m_choice.chooseSize(8);
    m_choice.chooseSize(9);
    m_choice.chooseColours(4);
    EXPECT_EQ(m_main.log, QStringList());
    m_choice.apply();
    m_choice.apply();
    EXPECT_EQ(m_main.log, QStringList({"ThumbNailSize 9", "ThumbNailColor 4"}));
    EXPECT_EQ(m_pane.stops, 0);
}

TEST_F(ThumbnailChoiceTest, EndsTheRunUnderWayAndAppliesTheNewestBehindIt)
{
    m_main.duringNextRun = [this] {
        m_choice.chooseSize(10);
        m_choice.chooseSize(11);
        m_choice.apply();
        EXPECT_EQ(m_main.log, QStringList({"ThumbNailSize 9"}));
        EXPECT_EQ(m_pane.stops, 2);
    };
    m_choice.chooseSize(9);
    m_choice.apply();
    EXPECT_EQ(m_main.log, QStringList({"ThumbNailSize 9", "ThumbNailSize 11"}));
    m_choice.chooseSize(12);
    m_choice.apply();
    EXPECT_EQ(m_main.log.last(), "ThumbNailSize 12");
}

TEST_F(ThumbnailChoiceTest, AppliesBothWhereBothCameMeanwhile)
{
    m_main.duringNextRun = [this] {
        m_choice.chooseColours(1);
        m_choice.chooseSize(20);
    };
    m_choice.chooseColours(0);
    m_choice.apply();
    EXPECT_EQ(m_main.log,
              QStringList({"ThumbNailColor 0", "ThumbNailSize 20", "ThumbNailColor 1"}));
}

TEST(ThumbnailChoice, EndsWithoutAMainWindow)
{
    preferences::ThumbnailChoice choice;
    choice.chooseSize(3);
    choice.chooseColours(2);
    choice.apply();
    support::FakeMainWindow main;
    choice.chooseColours(5);
    choice.apply();
    EXPECT_EQ(main.log, QStringList({"ThumbNailColor 5"}));
}
