#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "files/display_pipeline.h"
#include "platform/os/file_list.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <gtest/gtest.h>

namespace {

// The pane with its layouts counted.
class CountingPane : public core::BrowserPane {
public:
    explicit CountingPane(core::BrowserPane& pane)
        : m_pane(pane)
    {
    }

    void applyPath(const QString& /*folder*/) override {}
    void ThumResize() override { ++resizes; }
    platform::FileList& File1() override { return m_pane.File1(); }
    void setSplitterEnabled(bool /*enabled*/) override {}
    void rebuildThumbnails() override {}
    void stopThumbnails() override {}
    void setThumbnailSize(int /*pixels*/) override {}
    void setColourPreset(int /*preset*/) override {}
    int thumbnailPagesNeeded() override { return 0; }
    int thumbnailsPerPage() override { return 0; }
    [[nodiscard]] bool isFirstFolderShown() const override { return true; }
    [[nodiscard]] int widthTwips() const override { return m_pane.widthTwips(); }

    int resizes = 0;

private:
    core::BrowserPane& m_pane;
};

class ModesTest : public testing::Test {
protected:
    [[nodiscard]] static bool isChecked(Form1& form, const char* array, int index)
    {
        return RunningProgram::entry(form, array, index).isChecked();
    }

    // A window on a screen of another size fills that one at its next resize.
    void useScreen(Form1& form, QSize size)
    {
        program.desktop.area = QRect(QPoint(), size);
        form.overrideWindowState(Qt::WindowNoState);
        form.form1paint();
    }

    static QWidget* pane() { return core::windows().find(core::Window::frmThumbnaillist); }

    RunningProgram program;
};

} // namespace

TEST_F(ModesTest, GoesToPictureModeAndBack)
{
    program.run([this](Form1& form) {
        const QRect before = form.cpvPicScroll1().geometry();
        form.OCbrowse();
        EXPECT_FALSE(pane()->isVisible());
        EXPECT_TRUE(core::state().PictureWide);
        EXPECT_FALSE(core::state().BrowserShown);
        EXPECT_FALSE(isChecked(form, "optTools", 3));
        EXPECT_EQ(form.toolbars().button(13)->ButtonType(), 8);
        EXPECT_EQ(program.stored("ObcBrowse"), QStringLiteral("0"));
        EXPECT_EQ(form.cpvPicScroll1().x(), 0); // 1 twip
        EXPECT_EQ(form.cpvPicScroll1().width(), form.window()->width());
        form.OCbrowse();
        EXPECT_TRUE(pane()->isVisible());
        EXPECT_EQ(core::state().PictureWide, !core::state().BrowserShown);
        EXPECT_TRUE(isChecked(form, "optTools", 3));
        EXPECT_EQ(form.toolbars().button(13)->ButtonType(), 5);
        EXPECT_EQ(program.stored("ObcBrowse"), QStringLiteral("1"));
        EXPECT_EQ(form.cpvPicScroll1().geometry(), before);
    });
}

TEST_F(ModesTest, LeavesTheViewersWidthAloneWhenPictureModeIsResized)
{
    program.run([this](Form1& form) {
        form.OCbrowse();
        const QSize viewer = form.cpvPicScroll1().size();
        useScreen(form, {1400, 800});
        EXPECT_EQ(form.cpvPicScroll1().width(), viewer.width());
        EXPECT_NE(form.cpvPicScroll1().height(), viewer.height());
        const QWidget* strip = form.findChild<QWidget*>(QStringLiteral("Picture4"));
        EXPECT_EQ(form.cpvPicScroll1().geometry().bottom() + 1, strip->y());
    });
}

TEST_F(ModesTest, LaysPaneAndViewerSideBySide)
{
    program.run([](Form1& form) {
        const QRect viewer = form.cpvPicScroll1().geometry();
        EXPECT_EQ(pane()->x(), 0);
        EXPECT_EQ(pane()->y(), viewer.y());
        EXPECT_EQ(pane()->height(), viewer.height());
        EXPECT_LE(viewer.x(), pane()->width());
        EXPECT_EQ(viewer.right() + 1, form.window()->width());
        EXPECT_EQ(viewer.y(), form.coolBarHeightTwips() / 15);
    });
}

// The pane's grip covers nothing of the picture.
TEST_F(ModesTest, ShowsTheLeftEdgeOfAPictureAsWideAsTheViewer)
{
    program.run([](Form1& form) {
        QImage picture(4000, 40, QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        form.viewer().setPicture(platform::Picture(picture));
        const QImage viewer = form.cpvPicScroll1().grab().toImage();
        const int middle = viewer.height() / 2;
        const QRgb colour = QColor(Qt::magenta).rgb();
        int first = 0; // behind the viewer's own border
        while (first < viewer.width() && viewer.pixel(first, middle) != colour) {
            ++first;
        }
        ASSERT_LT(first, 5);
        const QPoint place = form.cpvPicScroll1().mapTo(&form, QPoint(first, middle));
        EXPECT_EQ(form.grab().toImage().pixel(place), colour);
    });
}

TEST_F(ModesTest, SwitchesThePanViewAndWritesTheKeyTheOtherWayRound)
{
    program.run([this](Form1& form) {
        form.Smallfrm();
        EXPECT_TRUE(form.cpvPicScroll1().PanViewVisible());
        EXPECT_TRUE(isChecked(form, "optView", 11) && isChecked(form, "CmdRight", 10));
        EXPECT_EQ(program.stored("Panview"), QStringLiteral("0"));
        form.Smallfrm();
        EXPECT_FALSE(isChecked(form, "optView", 11) || isChecked(form, "CmdRight", 10));
        EXPECT_EQ(program.stored("Panview"), QStringLiteral("1"));
        EXPECT_TRUE(form.cpvPicScroll1().PanViewVisible()); // hidden, but loaded
        form.resize(1500, 850);
        EXPECT_FALSE(form.cpvPicScroll1().PanViewVisible());
        form.Smallfrm();
        form.resize(1600, 900);
        EXPECT_TRUE(form.cpvPicScroll1().PanViewVisible());
    });
}

TEST_F(ModesTest, SwitchesScrollBarsAndZoomTool)
{
    program.run([this](Form1& form) {
        form.Scrollshow();
        EXPECT_EQ(form.cpvPicScroll1().ScrollBars(), 1);
        EXPECT_FALSE(isChecked(form, "optView", 12) || isChecked(form, "CmdRightView", 6));
        EXPECT_EQ(program.stored("Scrollshow"), QStringLiteral("1"));
        form.Scrollshow();
        EXPECT_EQ(form.cpvPicScroll1().ScrollBars(), 0);
        EXPECT_EQ(program.stored("Scrollshow"), QStringLiteral("0"));
        form.fastZoomshow();
        EXPECT_TRUE(core::windows().find(core::Window::fastZoom)->isVisible());
        EXPECT_TRUE(isChecked(form, "optView", 15) && isChecked(form, "CmdRightView", 8));
        EXPECT_EQ(program.stored("fastZoomshow"), QStringLiteral("0"));
        form.fastZoomshow();
        EXPECT_EQ(program.stored("fastZoomshow"), QStringLiteral("1"));
        EXPECT_FALSE(isChecked(form, "optView", 15));
    });
}

TEST_F(ModesTest, LeavesTheKeyOfTheZoomToolWhenItsBoxClosesIt)
{
    program.run([this](Form1& form) {
        form.fastZoomshow();
        QWidget* tool = core::windows().find(core::Window::fastZoom);
        ASSERT_NE(tool, nullptr);
        tool->findChild<QAbstractButton*>(QStringLiteral("Max"))->click();
        EXPECT_FALSE(core::windows().isLoaded(core::Window::fastZoom));
        EXPECT_FALSE(isChecked(form, "optView", 15) || isChecked(form, "CmdRightView", 8));
        EXPECT_EQ(program.stored("fastZoomshow"), QStringLiteral("0"));
        form.fastZoomshow();
        EXPECT_TRUE(core::windows().find(core::Window::fastZoom)->isVisible());
        EXPECT_TRUE(isChecked(form, "optView", 15) && isChecked(form, "CmdRightView", 8));
    });
}

TEST_F(ModesTest, ForgetsTheDragToggleAtTheEnd)
{
    program.run([this](Form1& form) {
        EXPECT_TRUE(isChecked(form, "optView", 13));
        const auto before = platform::readFile(program.tree.path("app/config.ini"));
        form.Dragpic();
        EXPECT_FALSE(form.cpvPicScroll1().MouseScrolling());
        EXPECT_FALSE(isChecked(form, "optView", 13) || isChecked(form, "CmdRightView", 7));
        EXPECT_EQ(platform::readFile(program.tree.path("app/config.ini")), before);
    });
    program.run([](Form1& form) { EXPECT_TRUE(form.cpvPicScroll1().MouseScrolling()); });
}

TEST_F(ModesTest, TogglesBestFit)
{
    program.run([this](Form1& form) {
        form.toggleBestFit();
        EXPECT_TRUE(form.cpvPicScroll1().BestFitMode());
        EXPECT_EQ(form.toolbars().button(15)->ButtonType(), 5);
        EXPECT_EQ(program.stored("BestFit"), QStringLiteral("1"));
        form.toggleBestFit();
        EXPECT_FALSE(form.cpvPicScroll1().BestFitMode());
        EXPECT_EQ(form.toolbars().button(15)->ButtonType(), 11);
        EXPECT_EQ(program.stored("BestFit"), QStringLiteral("0"));
    });
}

TEST_F(ModesTest, ChecksTheEntryOfBestFitBeforeTheViewerAndTheKeyAfter)
{
    program.run([this](Form1& form) {
        QStringList seen;
        QObject::connect(&RunningProgram::entry(form, "optView", 3), &QAction::toggled, &form, [&] {
            seen.append(QStringLiteral("type %1 fit %2 key %3")
                            .arg(form.toolbars().button(15)->ButtonType())
                            .arg(form.cpvPicScroll1().BestFitMode() ? 1 : 0)
                            .arg(program.stored("BestFit")));
        });
        form.toggleBestFit();
        form.toggleBestFit();
        EXPECT_EQ(seen, (QStringList{QStringLiteral("type 5 fit 0 key 0"),
                                     QStringLiteral("type 11 fit 1 key 1")}));
    });
}

TEST_F(ModesTest, HidesThePanViewWhileTheWindowIsMinimised)
{
    program.run([](Form1& form) {
        form.Smallfrm();
        const auto panView = [&form] {
            return form.findChild<QWidget*>(QStringLiteral("frmPanView"));
        };
        ASSERT_NE(panView(), nullptr);
        EXPECT_FALSE(panView()->isHidden());
        form.setWindowState(Qt::WindowMinimized);
        QApplication::processEvents();
        EXPECT_TRUE(panView()->isHidden());
        form.setWindowState(Qt::WindowMaximized);
        QApplication::processEvents();
        EXPECT_FALSE(panView()->isHidden());
        EXPECT_TRUE(isChecked(form, "optView", 11));
    });
}

TEST_F(ModesTest, LaysOutThePaneWithTheToolbarOnlyWhileItIsShown)
{
    program.run([this](Form1& form) {
        useScreen(form, {1100, 700}); // the file name has a row of its own
        core::BrowserPane* real = core::services().browserPane;
        CountingPane counting(*real);
        core::services().browserPane = &counting;
        form.setBandShown(2, false);
        EXPECT_EQ(counting.resizes, 1);
        core::state().BrowserShown = false;
        form.setBandShown(2, true);
        EXPECT_EQ(counting.resizes, 1);
        core::state().BrowserShown = true;
        core::services().browserPane = real;
    });
}

TEST_F(ModesTest, CoversTheScreenAndEndsTheShow)
{
    program.run([this](Form1& form) {
        form.start_slideshow();
        form.toolbars().keyButton(QStringLiteral("fullscreen"))->click();
        EXPECT_TRUE(form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(form.isMaximized());
        EXPECT_FALSE(form.pipeline().isRunning());
        EXPECT_EQ(core::state().SlideIndex, 0);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
    });
}

TEST_F(ModesTest, DoesntStayInTheNormalState)
{
    program.run([](Form1& form) {
        EXPECT_TRUE(form.isMaximized());
        form.setWindowState(Qt::WindowNoState);
        form.form1paint();
        EXPECT_TRUE(form.isMaximized());
        form.setWindowState(Qt::WindowMinimized);
        form.form1paint();
        EXPECT_TRUE(form.isMinimized());
        form.overrideWindowState(Qt::WindowNoState);
        form.resize(700, 500);
        EXPECT_TRUE(form.isMaximized());
        EXPECT_EQ(form.geometry(), QRect(0, 0, 1600, 900));
    });
}

TEST_F(ModesTest, HidesAndShowsTheBandsOfTools)
{
    program.run([](Form1& form) {
        QWidget* commands = form.findChild<QWidget*>(QStringLiteral("Band1"));
        QWidget* fileName = form.findChild<QWidget*>(QStringLiteral("Band2"));
        const int left = fileName->x();
        RunningProgram::trigger(form, "optTools", 4);
        EXPECT_FALSE(commands->isVisible());
        EXPECT_FALSE(isChecked(form, "optTools", 4));
        EXPECT_LT(fileName->x(), left);
        RunningProgram::trigger(form, "optTools", 5);
        EXPECT_FALSE(fileName->isVisible());
        RunningProgram::trigger(form, "optTools", 4);
        RunningProgram::trigger(form, "optTools", 5);
        EXPECT_TRUE(commands->isVisible() && fileName->isVisible());
        EXPECT_TRUE(isChecked(form, "optTools", 4) && isChecked(form, "optTools", 5));
        EXPECT_EQ(fileName->x(), left);
    });
}

TEST_F(ModesTest, MovesABandUpWhenTheOneAboveItHides)
{
    program.run([this](Form1& form) {
        useScreen(form, {900, 700});
        const QWidget* commands = form.findChild<QWidget*>(QStringLiteral("Band1"));
        const QWidget* fileName = form.findChild<QWidget*>(QStringLiteral("Band2"));
        const int below = fileName->y();
        ASSERT_GT(below, commands->geometry().bottom());
        RunningProgram::trigger(form, "optTools", 4);
        EXPECT_LT(fileName->y(), below);
        EXPECT_TRUE(fileName->isVisible());
        RunningProgram::trigger(form, "optTools", 4);
        EXPECT_EQ(fileName->y(), below);
    });
}

TEST_F(ModesTest, KeepsBothBandsInARowOf540Twips)
{
    program.run([this](Form1& form) {
        EXPECT_EQ(form.coolBarHeightTwips(), 540);
        useScreen(form, {900, 700});
        EXPECT_EQ(form.coolBarHeightTwips(), 1080);
    });
}

TEST_F(ModesTest, ColoursTheMenuBarWhateverTheTheme)
{
    const QPalette before = QApplication::palette();
    program.run([](Form1& form) {
        const QColor grey(0xE0, 0xE0, 0xE0);
        for (const QColor& theme : {QColor(Qt::white), QColor(Qt::black)}) {
            QApplication::setPalette(QPalette(theme));
            QApplication::processEvents();
            const QImage bar = form.menus().bar()->grab().toImage();
            EXPECT_EQ(bar.pixelColor(bar.width() - 4, bar.height() / 2), grey);
        }
    });
    QApplication::setPalette(before);
}

TEST_F(ModesTest, RefreshesThroughItsPublicOperations)
{
    program.run([this](Form1& form) {
        form.maskT();
        form.colorChagne();
        form.setModi();
        core::state().CurrentFolder = program.tree.path("pics");
        form.ChangePath();
        EXPECT_EQ(form.PictureCount, 3);
        form.Np(program.tree.path("app/openTemp"));
        EXPECT_EQ(form.PictureCount, 0);
        form.Propers(program.picture("a.bmp"));
        EXPECT_EQ(program.desktop.shownProperties, QStringList{program.picture("a.bmp")});
    });
}
