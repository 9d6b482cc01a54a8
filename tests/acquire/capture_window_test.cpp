#include "acquire/capture_fixture.h"
#include "acquire/capture_start.h"

#include <QPixmap>

using core::Window;

namespace {

class CaptureWindow : public CaptureTest {
protected:
    void SetUp() override
    {
        acquire::startCapture();
        ASSERT_TRUE(isOpen(Window::frmCapture));
    }

    static void show(support::FakeScreenGrab& screens, QColor colour)
    {
        QImage picture(400, 300, QImage::Format_RGB32);
        picture.fill(colour);
        screens.show(picture);
        core::windows().unload(Window::frmCapture);
        acquire::startCapture();
    }

    void expectCaptured(const QRect& part) const
    {
        const QString path = tree.path("app/temp.bmp");
        const auto file = platform::loadPicture(path);
        ASSERT_TRUE(file);
        const QImage expected = screens.frozen->picture.copy(part);
        EXPECT_EQ(file->flattened(), expected);
        EXPECT_EQ(form.image1.picture().flattened(), expected);
        EXPECT_EQ(form.fakeViewer.picture.flattened(), expected);
        EXPECT_EQ(form.xiala, path);
        EXPECT_TRUE(core::state().PictureChanged);
        EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
    }

    void expectNothingCaptured() const
    {
        EXPECT_FALSE(tree.exists("app/temp.bmp"));
        EXPECT_TRUE(form.xiala.isEmpty());
        EXPECT_TRUE(form.log.isEmpty());
        EXPECT_FALSE(core::state().PictureChanged);
        EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
    }
};

bool contains(const QImage& image, const QRect& part, QRgb colour)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (image.pixel(x, y) == colour) {
                return true;
            }
        }
    }
    return false;
}

constexpr QRgb kBlack = qRgb(0, 0, 0);
constexpr QRgb kWhite = qRgb(255, 255, 255);

} // namespace

TEST_F(CaptureWindow, ShowsTheScreenAsItWas)
{
    EXPECT_EQ(looks(), screens.frozen->picture);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(CaptureWindow, TakesWhatLiesBetweenTwoCornersInAnyOrder)
{
    const QRect part(100, 50, 200, 120);
    const QPoint end(300, 170);
    const std::pair<QPoint, QPoint> corners[] = {
        {part.topLeft(), end},
        {end, part.topLeft()},
        {{end.x(), part.y()}, {part.x(), end.y()}},
        {{part.x(), end.y()}, {end.x(), part.y()}},
    };
    for (const auto& [first, second] : corners) {
        form.xiala.clear();
        core::state().PictureChanged = false;
        acquire::startCapture();
        press(first);
        movePointer(second);
        press(second);
        expectCaptured(part);
    }
}

TEST_F(CaptureWindow, EnablesTheCommandsThatGoWithAPicture)
{
    press({10, 10});
    press({20, 20});
    EXPECT_TRUE(form.log.contains("setMenuState 1"));
}

TEST_F(CaptureWindow, ClosesWithoutAPictureWhereTheCornersAreOnOneLine)
{
    for (const QPoint second : {QPoint(60, 70), QPoint(60, 200), QPoint(200, 70)}) {
        acquire::startCapture();
        press({60, 70});
        press(second);
        expectNothingCaptured();
    }
}

TEST_F(CaptureWindow, ForgetsTheFirstCornerAtTheRightButton)
{
    press({10, 10});
    movePointer({300, 200});
    press({300, 200}, Qt::RightButton);
    EXPECT_TRUE(isOpen(Window::frmCapture));
    EXPECT_EQ(looks(), screens.frozen->picture);
    EXPECT_EQ(pane().cursor().shape(), Qt::ArrowCursor);
    press({400, 300});
    press({440, 330});
    expectCaptured({400, 300, 40, 30});
}

TEST_F(CaptureWindow, ClosesAtTheRightButtonWithoutACorner)
{
    press({10, 10}, Qt::RightButton);
    expectNothingCaptured();
}

TEST_F(CaptureWindow, DoesNothingAtTheMiddleButton)
{
    press({10, 10}, Qt::MiddleButton);
    press({20, 30});
    press({90, 90}, Qt::MiddleButton);
    EXPECT_TRUE(isOpen(Window::frmCapture));
    press({50, 60});
    expectCaptured({20, 30, 30, 30});
}

TEST_F(CaptureWindow, ClosesAtEscapeWithACornerAndWithout)
{
    pressKey(Window::frmCapture, Qt::Key_Escape);
    expectNothingCaptured();
    acquire::startCapture();
    press({10, 10});
    movePointer({200, 100});
    pressKey(Window::frmCapture, Qt::Key_Escape);
    expectNothingCaptured();
}

TEST_F(CaptureWindow, HasItsOwnPointerOnceACornerIsSet)
{
    EXPECT_EQ(pane().cursor().shape(), Qt::ArrowCursor);
    press({10, 10});
    EXPECT_NE(pane().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(CaptureWindow, OutlinesWhatTheSecondCornerWouldTake)
{
    show(screens, Qt::darkGreen);
    press({50, 40});
    movePointer({250, 140});
    const QImage shown = looks();
    for (const QPoint corner : {QPoint(50, 40), QPoint(250, 40), QPoint(50, 140)}) {
        EXPECT_NE(shown.pixel(corner), QColor(Qt::darkGreen).rgb());
    }
    EXPECT_TRUE(contains(shown, {50, 40, 201, 1}, kWhite)); // the dashes differ everywhere
    EXPECT_TRUE(contains(shown, {50, 40, 201, 1}, kBlack));
    EXPECT_EQ(shown.pixel(48, 38), QColor(Qt::darkGreen).rgb());
    EXPECT_EQ(shown.pixel(53, 43), QColor(Qt::darkGreen).rgb());
}

TEST_F(CaptureWindow, LeavesNothingOfTheOutlineBehind)
{
    press({50, 40});
    movePointer({250, 140});
    movePointer({300, 60});
    movePointer({50, 40});
    press({50, 40}, Qt::RightButton);
    EXPECT_EQ(looks(), screens.frozen->picture);
}

TEST_F(CaptureWindow, WritesTheSizeInTheMiddleWhereItFits)
{
    show(screens, Qt::red);
    press({50, 40});
    movePointer({250, 140});
    EXPECT_TRUE(contains(looks(), {110, 70, 80, 40}, kWhite));
    EXPECT_FALSE(contains(looks(), {53, 43, 50, 94}, kWhite));
    movePointer({60, 50});
    EXPECT_FALSE(contains(looks(), {53, 43, 5, 5}, kWhite));
}

TEST_F(CaptureWindow, WritesInBlackOnAnyBlue)
{
    show(screens, QColor(0, 0, 1));
    press({50, 40});
    movePointer({250, 140});
    EXPECT_TRUE(contains(looks(), {110, 70, 80, 40}, kBlack));
    EXPECT_FALSE(contains(looks(), {110, 70, 80, 40}, kWhite));
}

TEST_F(CaptureWindow, TakesTheRealPixelsOfASharperScreen)
{
    core::windows().unload(Window::frmCapture);
    screens.frozen->screens = {{{0, 0, 400, 400}, {0, 0, 800, 800}}};
    acquire::startCapture();
    press({50, 25});
    press({150, 85});
    expectCaptured({100, 50, 200, 120});
}

TEST_F(CaptureWindow, SpansScreensOfDifferentSharpness)
{
    core::windows().unload(Window::frmCapture);
    screens.frozen->screens = {{{0, 0, 400, 800}, {0, 0, 400, 800}},
                               {{400, 0, 200, 400}, {400, 0, 400, 800}}};
    acquire::startCapture();
    ASSERT_EQ(panes(Window::frmCapture).size(), 2);
    EXPECT_TRUE(pane(1).isVisible());
    press({300, 100}, Qt::LeftButton, 0);
    movePointer({100, 150}, 1);
    press({100, 150}, Qt::LeftButton, 1);
    expectCaptured({300, 100, 300, 200});
    deleteUnloaded();
}

TEST_F(CaptureWindow, ClosesTheOtherScreensToo)
{
    core::windows().unload(Window::frmCapture);
    screens.frozen->screens = {{{0, 0, 400, 800}, {0, 0, 400, 800}},
                               {{400, 0, 400, 800}, {400, 0, 400, 800}}};
    acquire::startCapture();
    const QPointer<QWidget> other = &pane(1);
    QTest::keyClick(other, Qt::Key_Escape); // which has the focus once it was clicked
    EXPECT_FALSE(other->isVisible());
    expectNothingCaptured();
    deleteUnloaded();
    EXPECT_EQ(other, nullptr);
}

TEST_F(CaptureWindow, StaysInThePictureWhereTheScreenGrows)
{
    core::windows().find(Window::frmCapture)->resize(1000, 900);
    EXPECT_EQ(pane().size(), QSize(1000, 900));
    EXPECT_EQ(looks().copy(0, 0, 800, 800), screens.frozen->picture);
    EXPECT_EQ(looks().pixel(900, 850), kBlack);
    press({700, 750});
    press({990, 890});
    expectCaptured({700, 750, 99, 49});
}

TEST_F(CaptureWindow, KeepsThePictureWhereTheScreenShrinks)
{
    core::windows().find(Window::frmCapture)->resize(300, 200);
    press({10, 10});
    press({290, 190});
    expectCaptured({10, 10, 280, 180});
}

TEST_F(CaptureWindow, IsWorkedByKeys)
{
    movePointer({100, 100});
    pressKey(Window::frmCapture, Qt::Key_Return);
    for (int step = 0; step < 3; ++step) {
        pressKey(Window::frmCapture, Qt::Key_Right, Qt::ShiftModifier);
        pressKey(Window::frmCapture, Qt::Key_Down);
    }
    pressKey(Window::frmCapture, Qt::Key_Left);
    pressKey(Window::frmCapture, Qt::Key_Up);
    pressKey(Window::frmCapture, Qt::Key_Space);
    expectCaptured({100, 100, 29, 2});
}
