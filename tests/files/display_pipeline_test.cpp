#include "files/display_pipeline.h"

#include "core/state.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/paths.h"
#include "support/fake_browser_pane.h"
#include "support/fake_main_window.h"
#include "support/temp_tree.h"

#include <QDialog>
#include <QLineEdit>
#include <functional>
#include <gtest/gtest.h>

namespace {

// Notes the names of the files that are shown, as the status bar is told them.
class OpeningWindow : public support::FakeMainWindow {
public:
    class PanelBar : public support::FakeStatusBar {
    public:
        void setPanel(core::Panel panel, const QString& text) override
        {
            if (panel != core::Panel::FileName) {
                return;
            }
            shown << text.trimmed();
            if (whileShowing) {
                whileShowing();
            }
        }

        QStringList shown;
        std::function<void()> whileShowing; // what happens while a file is opened
    };

    core::StatusBar& StateBar() override { return bar; }

    PanelBar bar;
};

class DisplayPipeline : public testing::Test {
protected:
    DisplayPipeline()
        : tree({{"pics/a.bmp"}, {"pics/b.bmp"}, {"pics/c.bmp"}, {"pics/notes.txt"}, {"empty/"}})
    {
        core::state() = {};
        main.parentWindow = &window;
        pane.files.setPattern("*.bmp");
        openFolder("pics");
    }
    ~DisplayPipeline() override { core::state() = {}; }

    void openFolder(const std::string& name)
    {
        pane.files.setPath(tree.path(name));
        main.counted =
            static_cast<std::int16_t>(platform::countFiles(tree.path(name), pane.files.pattern()));
    }
    [[nodiscard]] QString selected() const { return pane.files.fileName(); }

    support::TempTree tree;
    QWidget window;
    support::FakeBrowserPane pane{&window};
    OpeningWindow main;
    QStringList& shown = main.bar.shown;
    files::DisplayPipeline pipeline;
};

TEST_F(DisplayPipeline, OpensTheFileInTheFieldUnderTheHourglass)
{
    for (const auto open :
         {&files::DisplayPipeline::goEnter, &files::DisplayPipeline::clickXiala}) {
        shown.clear();
        platform::Pointer pointer = platform::Pointer::Default;
        main.bar.whileShowing = [&] { pointer = platform::pointer(); };
        main.xiala = tree.path("pics/c.bmp");
        (pipeline.*open)();
        EXPECT_EQ(shown, QStringList("c.bmp"));
        EXPECT_EQ(pointer, platform::Pointer::HourGlass);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    }
}

TEST_F(DisplayPipeline, StepsForwardsAndRepeatsTheLastFile)
{
    for (int i = 0; i < 5; ++i) {
        pipeline.nextpic();
    }
    EXPECT_EQ(shown, QStringList({"a.bmp", "b.bmp", "c.bmp", "c.bmp", "c.bmp"}));
    EXPECT_EQ(pane.files.listIndex(), 2);
    EXPECT_EQ(main.xiala, tree.path("pics/c.bmp"));
}

TEST_F(DisplayPipeline, StepsBackwardsAndNeverSelectsNothing)
{
    ASSERT_TRUE(pane.files.setListIndex(2));
    for (int i = 0; i < 4; ++i) {
        pipeline.prevpic();
    }
    EXPECT_EQ(shown, QStringList({"b.bmp", "a.bmp", "a.bmp", "a.bmp"}));
    EXPECT_EQ(pane.files.listIndex(), 0);
}

TEST_F(DisplayPipeline, CountsTheFilesThatTheListShows)
{
    EXPECT_EQ(main.counted, 3);
}

TEST_F(DisplayPipeline, ShowsTheFilesInTurnWithOneRepeatAPass)
{
    main.xiala = tree.path("pics/a.bmp");
    pipeline.start_slideshow();
    EXPECT_EQ(shown, QStringList("a.bmp"));
    EXPECT_EQ(main.xiala, tree.path("pics/a.bmp"));
    shown.clear();
    for (int i = 0; i < 8; ++i) {
        pipeline.tick();
    }
    // Each tick shows what the field named and writes the next; the index past the end repeats c.
    EXPECT_EQ(shown, QStringList(
                         {"a.bmp", "b.bmp", "c.bmp", "c.bmp", "a.bmp", "b.bmp", "c.bmp", "c.bmp"}));
    EXPECT_EQ(core::state().SlideIndex, 0);
    EXPECT_EQ(main.xiala, tree.path("pics/a.bmp"));
}

TEST_F(DisplayPipeline, DisplayPicShowsFirstAndAdvancesThen)
{
    main.xiala = tree.path("pics/c.bmp");
    core::state().SlideIndex = 1;
    main.image1.setPicture(platform::Picture(QImage(7, 5, QImage::Format_RGB32)));
    bool copiedBefore = true;
    main.bar.whileShowing = [&] { copiedBefore = !main.original.picture().isNothing(); };
    pipeline.display_pic();
    EXPECT_EQ(shown, QStringList("c.bmp"));
    EXPECT_EQ(selected(), "b.bmp");
    EXPECT_EQ(core::state().CurrentFile, tree.path("pics/b.bmp"));
    EXPECT_EQ(main.xiala, tree.path("pics/b.bmp"));
    EXPECT_FALSE(copiedBefore);
    EXPECT_EQ(main.original.picture().width(), 7);
    EXPECT_EQ(main.log, QStringList("viewer focus"));
}

TEST_F(DisplayPipeline, AStepAndDisplayPicEndOnTheFirstFile)
{
    ASSERT_TRUE(pane.files.setListIndex(0));
    pipeline.nextpic();
    pipeline.display_pic();
    EXPECT_EQ(shown, QStringList({"b.bmp", "b.bmp"}));
    EXPECT_EQ(main.xiala, tree.path("pics/a.bmp"));
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
    for (const auto step : {&files::DisplayPipeline::nextpic, &files::DisplayPipeline::prevpic}) {
        pipeline.setSlideToggle(true);
        pipeline.tick();
        EXPECT_TRUE(pipeline.isRunning());
        EXPECT_TRUE(main.slideButton);
        (pipeline.*step)();
        EXPECT_FALSE(pipeline.isRunning());
        EXPECT_FALSE(main.slideButton);
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
    shown.clear();
    window.setWindowState(Qt::WindowMinimized);
    pipeline.tick();
    pipeline.tick();
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_EQ(core::state().SlideIndex, 0);
    EXPECT_TRUE(pipeline.isRunning());
    window.setWindowState(Qt::WindowNoState);
    pipeline.tick();
    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(core::state().SlideIndex, 1);
}

TEST_F(DisplayPipeline, PausesWhileAModalWindowStands)
{
    pipeline.start_slideshow();
    shown.clear();
    QDialog modal;
    modal.setModal(true);
    modal.show();
    const QString field = main.xiala;
    for (int i = 0; i < 3; ++i) {
        pipeline.tick();
    }
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_EQ(core::state().SlideIndex, 0);
    EXPECT_EQ(main.xiala, field);
    EXPECT_TRUE(pipeline.isRunning());
    modal.hide();
    pipeline.tick();
    EXPECT_EQ(shown.size(), 1);
}

TEST_F(DisplayPipeline, TakesTheFocusFromNobodyWhoTypesByATick)
{
    QLineEdit field(&window);
    QWidget partOfThePane(&pane);
    for (QWidget* const part : {static_cast<QWidget*>(&field), &partOfThePane}) {
        part->setFocus();
        pipeline.start_slideshow();
        EXPECT_TRUE(main.log.contains("viewer focus")); // a command does
        main.log.clear();
        shown.clear();
        pipeline.tick();
        EXPECT_EQ(shown.size(), 1);
        EXPECT_FALSE(main.log.contains("viewer focus"));
        part->clearFocus();
        pipeline.tick();
        EXPECT_EQ(main.log.last(), "viewer focus");
    }
}

TEST_F(DisplayPipeline, PassesOverTicksWhileAFileIsBeingOpened)
{
    for (const auto step :
         {&files::DisplayPipeline::start_slideshow, &files::DisplayPipeline::tick,
          &files::DisplayPipeline::nextpic, &files::DisplayPipeline::display_pic}) {
        main.bar.whileShowing = {};
        pipeline.start_slideshow();
        main.xiala = tree.path("pics/a.bmp");
        shown.clear();
        main.bar.whileShowing = [&] {
            if (shown.size() < 4) {
                pipeline.tick();
            }
        };
        (pipeline.*step)();
        EXPECT_EQ(shown.size(), 1);
    }
    pipeline.start_slideshow();
    main.bar.whileShowing = {};
    shown.clear();
    pipeline.tick();
    EXPECT_EQ(shown.size(), 1);
}

TEST_F(DisplayPipeline, DoesNothingOnceTheProgramCloses)
{
    pipeline.start_slideshow();
    shown.clear();
    platform::beginClosing();
    pipeline.tick();
    platform::resetClosing();
    EXPECT_TRUE(shown.isEmpty());
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
    const QString before = main.xiala;
    openFolder("empty");
    pipeline.start_slideshow();
    for (int i = 0; i < 10; ++i) {
        pipeline.tick();
        EXPECT_EQ(core::state().SlideIndex, 0);
    }
    pipeline.nextpic();
    pipeline.prevpic();
    EXPECT_EQ(pane.files.listIndex(), -1);
    EXPECT_EQ(main.xiala, tree.path("empty") + "/");
}

TEST_F(DisplayPipeline, BearsAMissingPane)
{
    core::services().browserPane = nullptr;
    pipeline.start_slideshow();
    pipeline.tick();
    pipeline.nextpic();
    pipeline.prevpic();
    EXPECT_FALSE(pipeline.isRunning());
}

TEST_F(DisplayPipeline, GoesOnAfterFullScreenAsItFindsTheTimer)
{
    main.xiala = tree.path("pics/b.bmp");
    pipeline.continueAfterFullScreen();
    EXPECT_EQ(shown, QStringList("b.bmp"));
    EXPECT_FALSE(pipeline.isRunning());
    pipeline.start_slideshow();
    pipeline.continueAfterFullScreen();
    EXPECT_TRUE(pipeline.isRunning());
}

} // namespace
