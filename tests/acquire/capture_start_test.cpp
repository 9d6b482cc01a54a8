#include "acquire/capture_fixture.h"
#include "acquire/capture_icon_window.h"
#include "acquire/capture_start.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>

using acquire::Leave;
using core::Window;

namespace {

class ModalWindow : public QDialog {
public:
    explicit ModalWindow(QWidget* parent = nullptr)
        : QDialog(parent)
    {
        setModal(true);
        show();
    }
};

class CaptureStart : public CaptureTest {
protected:
    CaptureStart() { leaving.show(); }

    // Lets the window leave the screen.
    void waitForTheGrab()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !screens.asked.empty(); }));
    }

    static QPushButton& button(const char* name)
    {
        return *core::windows().find(Window::frmCaputreN)->findChild<QPushButton*>(name);
    }

    QWidget leaving;
};

} // namespace

TEST_F(CaptureStart, MinimisesTheMainWindowBeforeTheScreenIsTaken)
{
    acquire::startCapture(&leaving);
    EXPECT_TRUE(leaving.isMinimized());
    EXPECT_TRUE(screens.asked.empty());
    EXPECT_EQ(platform::pointer(), platform::Pointer::HourGlass);
    waitForTheGrab();
    EXPECT_TRUE(isOpen(Window::frmCapture));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    pressKey(Window::frmCapture, Qt::Key_Escape);
    deleteUnloaded();
    EXPECT_TRUE(leaving.isMinimized());
}

TEST_F(CaptureStart, BringsAHiddenWindowBack)
{
    acquire::startColourPicker(&leaving, Leave::Hidden);
    EXPECT_FALSE(leaving.isVisible());
    waitForTheGrab();
    EXPECT_TRUE(isOpen(Window::frmGetColor));
    pressKey(Window::frmGetColor, Qt::Key_Escape);
    deleteUnloaded();
    EXPECT_TRUE(leaving.isVisible());
}

TEST_F(CaptureStart, GivesTheMainWindowBackWhereTheScreenIsRefused)
{
    screens.frozen.reset();
    acquire::startCapture(&leaving);
    waitForTheGrab();
    EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
    EXPECT_TRUE(leaving.isVisible());
    EXPECT_FALSE(leaving.isMinimized());
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    screens.show(support::numberedScreen({50, 50}));
    acquire::startCapture();
    EXPECT_TRUE(isOpen(Window::frmCapture));
}

TEST_F(CaptureStart, WaitsForALateAnswer)
{
    screens.answers = support::FakeScreenGrab::Answers::WhenTold;
    acquire::startCapture();
    EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    screens.answer();
    EXPECT_TRUE(isOpen(Window::frmCapture));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(CaptureStart, LeavesThePointerToWhatGoesOnBesideALateAnswer)
{
    screens.answers = support::FakeScreenGrab::Answers::WhenTold;
    acquire::startCapture();
    {
        const platform::PointerGuard work(platform::Pointer::ArrowHourGlass);
        screens.answer();
        EXPECT_EQ(platform::pointer(), platform::Pointer::ArrowHourGlass);
    }
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

// A box that opened while the window left, say, and that is closed when the screen has been taken.
TEST_F(CaptureStart, LeavesNoHourglassToWhatBeganMeanwhile)
{
    acquire::startCapture(&leaving);
    {
        const platform::PointerGuard work;
        waitForTheGrab();
    }
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

// It would get neither clicks nor keys, and lie over the window that has them.
TEST_F(CaptureStart, AsksForNothingWhileAModalWindowIsOpen)
{
    acquire::showCaptureIcon();
    {
        const ModalWindow modal;
        tray.icon->doubleClicked();
        tray.icon->chosen(24579);
        acquire::startCapture(&leaving);
        EXPECT_TRUE(screens.asked.empty());
        EXPECT_FALSE(leaving.isMinimized());
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    }
    tray.icon->doubleClicked();
    EXPECT_TRUE(isOpen(Window::frmCapture));
}

TEST_F(CaptureStart, ShowsNothingOverAModalWindowThatOpenedMeanwhile)
{
    screens.answers = support::FakeScreenGrab::Answers::WhenTold;
    acquire::startCapture(&leaving);
    waitForTheGrab();
    const ModalWindow modal(&leaving);
    screens.answer();
    EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
    EXPECT_TRUE(leaving.isVisible());
    EXPECT_FALSE(leaving.isMinimized());
    EXPECT_TRUE(modal.isVisible());
}

TEST_F(CaptureStart, TakesOneAnswerOfTwo)
{
    screens.answers = support::FakeScreenGrab::Answers::WhenTold;
    acquire::startCapture();
    screens.answer();
    screens.answer();
    EXPECT_EQ(panes(Window::frmCapture).size(), 1);
    pressKey(Window::frmCapture, Qt::Key_Escape);
    screens.answer();
    deleteUnloaded();
    screens.answer();
    EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
}

TEST_F(CaptureStart, IsUnderWayOnceOnly)
{
    screens.answers = support::FakeScreenGrab::Answers::WhenTold;
    acquire::startCapture();
    acquire::startCapture();
    acquire::startColourPicker();
    EXPECT_EQ(screens.asked.size(), 1U);
    screens.answer();
    acquire::startCapture();
    acquire::startColourPicker();
    EXPECT_EQ(screens.asked.size(), 1U);
    EXPECT_FALSE(core::windows().isLoaded(Window::frmGetColor));
}

TEST_F(CaptureStart, ShowsNothingWhileTheProgramCloses)
{
    screens.answers = support::FakeScreenGrab::Answers::WhenTold;
    acquire::startCapture();
    platform::beginClosing();
    screens.answer();
    EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
}

TEST_F(CaptureStart, OutlivesTheWindowThatLeft)
{
    auto gone = std::make_unique<QWidget>();
    gone->show();
    acquire::startCapture(gone.get());
    gone.reset();
    waitForTheGrab();
    EXPECT_TRUE(isOpen(Window::frmCapture));
}

TEST_F(CaptureStart, StandsInTheTrayWithItsTipAndItsMenu)
{
    acquire::showCaptureIcon();
    ASSERT_TRUE(tray.icon);
    EXPECT_TRUE(core::windows().isLoaded(Window::frmCaputreN));
    EXPECT_FALSE(isOpen(Window::frmCaputreN));
    EXPECT_EQ(tray.icon->tip, "Double click to capture image, right click for options!");
    const std::vector<std::pair<int, QString>> expected{
        {24576, "Cancel"}, {24577, ""},    {24578, "Capture Image"}, {24579, "Capture Web Color"},
        {24577, ""},       {24580, "Exit"}};
    std::vector<std::pair<int, QString>> entries;
    for (const platform::TrayEntry& entry : tray.icon->entries) {
        entries.emplace_back(entry.command, entry.caption);
    }
    EXPECT_EQ(entries, expected);
}

TEST_F(CaptureStart, CapturesAtADoubleClickOnTheIcon)
{
    acquire::showCaptureIcon();
    tray.icon->doubleClicked();
    EXPECT_TRUE(isOpen(Window::frmCapture));
}

TEST_F(CaptureStart, RunsTheCommandsOfTheIcon)
{
    acquire::showCaptureIcon();
    tray.icon->chosen(24576);
    EXPECT_TRUE(screens.asked.empty());
    EXPECT_TRUE(tray.icon);
    tray.icon->chosen(24578);
    EXPECT_TRUE(isOpen(Window::frmCapture));
    pressKey(Window::frmCapture, Qt::Key_Escape);
    tray.icon->chosen(24579);
    EXPECT_TRUE(isOpen(Window::frmGetColor));
    pressKey(Window::frmGetColor, Qt::Key_Escape);
    tray.icon->chosen(24580);
    deleteUnloaded();
    EXPECT_FALSE(tray.icon);
    EXPECT_FALSE(core::windows().isLoaded(Window::frmCaputreN));
}

TEST_F(CaptureStart, HasOneIconHoweverOftenItIsAskedFor)
{
    acquire::showCaptureIcon();
    const QPointer<QWidget> first = core::windows().find(Window::frmCaputreN);
    acquire::showCaptureIcon();
    EXPECT_EQ(core::windows().find(Window::frmCaputreN), first);
}

TEST_F(CaptureStart, HasAWindowWhereThereIsNoTray)
{
    tray.exists = false;
    acquire::showCaptureIcon();
    ASSERT_TRUE(isOpen(Window::frmCaputreN));
    EXPECT_EQ(core::windows().find(Window::frmCaputreN)->parentWidget(), nullptr);
    button("cmdImage").click();
    EXPECT_FALSE(isOpen(Window::frmCaputreN));
    waitForTheGrab();
    EXPECT_TRUE(isOpen(Window::frmCapture));
    pressKey(Window::frmCapture, Qt::Key_Escape);
    deleteUnloaded();
    EXPECT_TRUE(isOpen(Window::frmCaputreN));
    button("cmdExit").click();
    EXPECT_FALSE(core::windows().isLoaded(Window::frmCaputreN));
}
