#include "core/state.h"
#include "files/display_pipeline.h"
#include "shell/running_program.h"
#include "shell/side_activation.h"
#include "shell/toolbars.h"
#include "thumbs/pane/browser_pane.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QApplication>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace {

// As the browser pane does, it lets no press go on to the window.
class Pane : public QWidget {
public:
    using QWidget::QWidget;

private:
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
};

// A window with a pane at its left and something else at its right.
class SideActivationTest : public testing::Test {
protected:
    SideActivationTest()
    {
        window.resize(400, 300);
        pane.setGeometry(0, 0, 100, 300);
        inPane.setGeometry(0, 0, 100, 100);
        beside.setGeometry(200, 0, 100, 100);
    }

    void watch()
    {
        activation.setPane(&pane, [this] { log.append(QStringLiteral("pane")); });
    }

    QStringList log;
    QWidget window;
    Pane pane{&window};
    QWidget inPane{&pane};
    QWidget beside{&window};
    shell::SideActivation activation{window, [this] { log.append(QStringLiteral("main")); }};
};

const QString kMain = QStringLiteral("main");
const QString kPane = QStringLiteral("pane");

} // namespace

TEST_F(SideActivationTest, TellsOnceWhichSideAPressCameTo)
{
    watch();
    for (QWidget* widget :
         std::initializer_list<QWidget*>{&beside, &beside, &inPane, &pane, &window}) {
        RunningProgram::click(*widget);
    }
    EXPECT_EQ(log, (QStringList{kMain, kPane, kMain}));
}

TEST_F(SideActivationTest, LeavesOtherWindowsAlone)
{
    watch();
    QWidget other;
    RunningProgram::click(other);
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(SideActivationTest, TakesAPaneThatIsShownAsTheActiveSide)
{
    window.show();
    watch();
    RunningProgram::click(inPane);
    EXPECT_TRUE(log.isEmpty());
    RunningProgram::click(beside);
    EXPECT_EQ(log, QStringList{kMain});
}

TEST_F(SideActivationTest, FollowsThePaneAsItComesAndGoes)
{
    window.show();
    watch();
    log.clear();
    pane.hide();
    EXPECT_EQ(log, QStringList{kMain});
    pane.show();
    EXPECT_EQ(log, (QStringList{kMain, kPane}));
}

TEST_F(SideActivationTest, TellsAgainWhenTheWindowWasLeft)
{
    watch();
    RunningProgram::click(beside);
    QEvent left(QEvent::WindowDeactivate);
    QApplication::sendEvent(&window, &left);
    QEvent back(QEvent::WindowActivate);
    QApplication::sendEvent(&window, &back);
    EXPECT_EQ(log, (QStringList{kMain, kMain}));
}

// The files of the folder shown are counted by the time that somebody starts a slide show.
TEST(SideActivationOfTheProgram, CountsTheFilesBeforeTheFirstSlideShow)
{
    for (const char* browse : {"0", "1"}) {
        RunningProgram program;
        program.config[QStringLiteral("ObcBrowse")] = QString::fromLatin1(browse);
        program.run([&](Form1& form) {
            RunningProgram::click(*form.toolbars().button(7));
            EXPECT_TRUE(form.pipeline().isRunning());
            EXPECT_EQ(form.PictureCount, 3) << browse;
            EXPECT_EQ(core::state().CurrentFolder, program.tree.path("pics"));
            EXPECT_FALSE(core::state().FirstActivate);
        });
    }
}

TEST(SideActivationOfTheProgram, CountsAgainAfterAnotherFolderWasChosen)
{
    RunningProgram program;
    program.tree.add({"more/x.swf", "x"});
    program.run([&](Form1& form) {
        RunningProgram::click(form.cpvPicScroll1());
        EXPECT_EQ(form.PictureCount, 3);
        auto& pane =
            dynamic_cast<frmThumbnaillist&>(*core::windows().find(core::Window::frmThumbnaillist));
        RunningProgram::click(pane);
        core::state().CurrentFolder = program.tree.path("more");
        pane.PathChange();
        EXPECT_EQ(form.PictureCount, 3);
        RunningProgram::click(form.cpvPicScroll1());
        EXPECT_EQ(form.PictureCount, 1);
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("more"));
    });
}
