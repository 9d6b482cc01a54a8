#include "core/state.h"
#include "platform/desktop/pump.h"
#include "platform/os/file_list.h"
#include "support/temp_tree.h"
#include "viewer/display_pipeline.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class FakeHost : public viewer::DisplayHost {
public:
    platform::FileList* File1() override { return list; }
    [[nodiscard]] std::int16_t PictureCount() const override { return pictureCount; }
    [[nodiscard]] QString Xiala() const override { return field; }
    void setXiala(const QString& text) override { field = text; }
    void clickXiala() override
    {
        shown << platform::fileNameOf(field);
        calls << "click";
        if (whileShowing) {
            whileShowing();
        }
    }
    void copyImage1ToOrgPicture() override { calls << "copy"; }
    void focusViewer() override { calls << "focus"; }
    void pressSlideButton(bool pressed) override { buttonPressed = pressed; }
    [[nodiscard]] bool isWindowMinimised() const override { return minimised; }
    [[nodiscard]] bool isModalWindowOpen() const override { return modal; }
    [[nodiscard]] bool isUserTyping() const override { return typing; }

    platform::FileList* list = nullptr;
    std::int16_t pictureCount = 0;
    QString field;
    QStringList shown; // the file names that the field was opened with
    QStringList calls;
    std::function<void()> whileShowing; // what happens while a file is opened
    bool buttonPressed = false;
    bool minimised = false;
    bool modal = false;
    bool typing = false;
};

class DisplayPipeline : public testing::Test {
protected:
    DisplayPipeline()
        : tree({{"pics/a.bmp"}, {"pics/b.bmp"}, {"pics/c.bmp"}, {"pics/notes.txt"}, {"empty/"}})
        , pipeline(host)
    {
        core::state() = {};
        list.setPattern("*.bmp");
        openFolder("pics");
        host.list = &list;
    }
    ~DisplayPipeline() override { core::state() = {}; }

    void openFolder(const std::string& name)
    {
        list.setPath(tree.path(name));
        host.pictureCount =
            static_cast<std::int16_t>(platform::countFiles(tree.path(name), list.pattern()));
    }
    [[nodiscard]] QString selected() const { return list.fileName(); }

    support::TempTree tree;
    platform::FileList list;
    FakeHost host;
    viewer::DisplayPipeline pipeline;
};

TEST_F(DisplayPipeline, StepsForwardsAndRepeatsTheLastFile)
{
    for (int i = 0; i < 5; ++i) {
        pipeline.nextpic();
    }
    EXPECT_EQ(host.shown, QStringList({"a.bmp", "b.bmp", "c.bmp", "c.bmp", "c.bmp"}));
    EXPECT_EQ(list.listIndex(), 2);
    EXPECT_EQ(host.field, tree.path("pics/c.bmp"));
}

TEST_F(DisplayPipeline, StepsBackwardsAndNeverSelectsNothing)
{
    ASSERT_TRUE(list.setListIndex(2));
    for (int i = 0; i < 4; ++i) {
        pipeline.prevpic();
    }
    EXPECT_EQ(host.shown, QStringList({"b.bmp", "a.bmp", "a.bmp", "a.bmp"}));
    EXPECT_EQ(list.listIndex(), 0);
}

TEST_F(DisplayPipeline, CountsTheFilesThatTheListShows)
{
    EXPECT_EQ(host.PictureCount(), 3);
}

TEST_F(DisplayPipeline, ShowsTheFilesInTurnWithOneRepeatAPass)
{
    host.field = tree.path("pics/a.bmp");
    pipeline.start_slideshow();
    EXPECT_EQ(host.shown, QStringList("a.bmp"));
    EXPECT_EQ(host.field, tree.path("pics/a.bmp"));
    host.shown.clear();
    for (int i = 0; i < 8; ++i) {
        pipeline.tick();
    }
    // Each tick shows what the field named and writes the next; the index past the end repeats c.
    EXPECT_EQ(host.shown, QStringList({"a.bmp", "b.bmp", "c.bmp", "c.bmp", "a.bmp", "b.bmp",
                                       "c.bmp", "c.bmp"}));
    EXPECT_EQ(core::state().SlideIndex, 0);
    EXPECT_EQ(host.field, tree.path("pics/a.bmp"));
}

TEST_F(DisplayPipeline, DisplayPicShowsFirstAndAdvancesThen)
{
    host.field = tree.path("pics/c.bmp");
    core::state().SlideIndex = 1;
    pipeline.display_pic();
    EXPECT_EQ(host.shown, QStringList("c.bmp"));
    EXPECT_EQ(selected(), "b.bmp");
    EXPECT_EQ(core::state().CurrentFile, tree.path("pics/b.bmp"));
    EXPECT_EQ(host.field, tree.path("pics/b.bmp"));
    EXPECT_EQ(host.calls, QStringList({"click", "copy", "focus"}));
}

TEST_F(DisplayPipeline, AStepAndDisplayPicEndOnTheFirstFile)
{
    ASSERT_TRUE(list.setListIndex(0));
    pipeline.nextpic();
    pipeline.display_pic();
    EXPECT_EQ(host.shown, QStringList({"b.bmp", "b.bmp"}));
    EXPECT_EQ(host.field, tree.path("pics/a.bmp"));
    EXPECT_EQ(selected(), "a.bmp");
}

TEST_F(DisplayPipeline, SlideIndexWrapsBothWays)
{
    std::int16_t& index = core::state().SlideIndex;
    pipeline.SlidePrevp();
    EXPECT_EQ(index, 3);
    pipeline.SlidePrevp();
    EXPECT_EQ(index, 2);
    pipeline.SlideNext();
    EXPECT_EQ(index, 3);
    pipeline.SlideNext();
    EXPECT_EQ(index, 0);
}

TEST_F(DisplayPipeline, AnyStepEndsTheShowButLeavesTheFlag)
{
    for (const auto step : {&viewer::DisplayPipeline::nextpic, &viewer::DisplayPipeline::prevpic}) {
        pipeline.setSlideToggle(true);
        pipeline.tick();
        EXPECT_TRUE(pipeline.isRunning());
        EXPECT_TRUE(host.buttonPressed);
        (pipeline.*step)();
        EXPECT_FALSE(pipeline.isRunning());
        EXPECT_FALSE(host.buttonPressed);
        EXPECT_EQ(core::state().SlideIndex, 0);
        EXPECT_TRUE(pipeline.SlideToggle());
        // The next press only stops once more.
        pipeline.toggleSlideShow();
        EXPECT_FALSE(pipeline.isRunning());
        EXPECT_FALSE(pipeline.SlideToggle());
    }
    pipeline.toggleSlideShow();
    EXPECT_TRUE(pipeline.isRunning());
}

TEST_F(DisplayPipeline, PausesWhileTheWindowIsMinimised)
{
    pipeline.start_slideshow();
    host.shown.clear();
    host.minimised = true;
    pipeline.tick();
    pipeline.tick();
    EXPECT_TRUE(host.shown.isEmpty());
    EXPECT_EQ(core::state().SlideIndex, 0);
    EXPECT_TRUE(pipeline.isRunning());
    host.minimised = false;
    pipeline.tick();
    EXPECT_EQ(host.shown.size(), 1);
    EXPECT_EQ(core::state().SlideIndex, 1);
}

TEST_F(DisplayPipeline, PausesWhileAModalWindowStands)
{
    pipeline.start_slideshow();
    host.shown.clear();
    host.modal = true;
    const QString field = host.field;
    for (int i = 0; i < 3; ++i) {
        pipeline.tick();
    }
    EXPECT_TRUE(host.shown.isEmpty());
    EXPECT_EQ(core::state().SlideIndex, 0);
    EXPECT_EQ(host.field, field);
    EXPECT_TRUE(pipeline.isRunning());
    host.modal = false;
    pipeline.tick();
    EXPECT_EQ(host.shown.size(), 1);
}

TEST_F(DisplayPipeline, TakesTheFocusFromNobodyWhoTypesByATick)
{
    host.typing = true;
    pipeline.start_slideshow();
    EXPECT_TRUE(host.calls.contains("focus")); // a command does
    host.calls.clear();
    pipeline.tick();
    EXPECT_EQ(host.calls, QStringList({"click", "copy"}));
    host.typing = false;
    pipeline.tick();
    EXPECT_EQ(host.calls.last(), "focus");
}

TEST_F(DisplayPipeline, PassesOverTicksWhileAFileIsBeingOpened)
{
    for (const auto step :
         {&viewer::DisplayPipeline::start_slideshow, &viewer::DisplayPipeline::tick,
          &viewer::DisplayPipeline::nextpic, &viewer::DisplayPipeline::display_pic}) {
        host.whileShowing = {};
        pipeline.start_slideshow();
        host.field = tree.path("pics/a.bmp");
        host.shown.clear();
        host.whileShowing = [&] {
            if (host.shown.size() < 4) {
                pipeline.tick();
            }
        };
        (pipeline.*step)();
        EXPECT_EQ(host.shown.size(), 1);
    }
    pipeline.start_slideshow();
    host.whileShowing = {};
    host.shown.clear();
    pipeline.tick();
    EXPECT_EQ(host.shown.size(), 1);
}

TEST_F(DisplayPipeline, DoesNothingOnceTheProgramCloses)
{
    pipeline.start_slideshow();
    host.shown.clear();
    platform::beginClosing();
    pipeline.tick();
    platform::resetClosing();
    EXPECT_TRUE(host.shown.isEmpty());
}

TEST_F(DisplayPipeline, ChangesItsIntervalWithinBounds)
{
    EXPECT_EQ(pipeline.intervalMs(), 5000);
    EXPECT_FALSE(pipeline.isRunning());
    pipeline.slower();
    EXPECT_EQ(pipeline.intervalMs(), 6000);
    for (int i = 0; i < 100; ++i) {
        pipeline.slower();
    }
    EXPECT_EQ(pipeline.intervalMs(), 65000);
    for (int i = 0; i < 100; ++i) {
        pipeline.faster();
    }
    EXPECT_EQ(pipeline.intervalMs(), 1000);
    EXPECT_FALSE(pipeline.isRunning());
    pipeline.start_slideshow();
    pipeline.slower();
    EXPECT_TRUE(pipeline.isRunning());
}

TEST_F(DisplayPipeline, BearsAnEmptyFolder)
{
    pipeline.nextpic();
    const QString before = host.field;
    openFolder("empty");
    pipeline.start_slideshow();
    for (int i = 0; i < 10; ++i) {
        pipeline.tick();
        EXPECT_EQ(core::state().SlideIndex, 0);
    }
    pipeline.nextpic();
    pipeline.prevpic();
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(host.field, tree.path("empty") + "/");
}

TEST_F(DisplayPipeline, BearsAMissingPane)
{
    host.list = nullptr;
    pipeline.start_slideshow();
    pipeline.tick();
    pipeline.nextpic();
    pipeline.prevpic();
    EXPECT_FALSE(pipeline.isRunning());
}

TEST_F(DisplayPipeline, GoesOnAfterFullScreenAsItFindsTheTimer)
{
    host.field = tree.path("pics/b.bmp");
    pipeline.continueAfterFullScreen();
    EXPECT_EQ(host.shown, QStringList("b.bmp"));
    EXPECT_FALSE(pipeline.isRunning());
    pipeline.start_slideshow();
    pipeline.continueAfterFullScreen();
    EXPECT_TRUE(pipeline.isRunning());
}

} // namespace
