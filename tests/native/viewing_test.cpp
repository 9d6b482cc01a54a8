#include "core/status_bar.h"
#include "core/window_registry.h"
#include "formats/hooks.h"
#include "native/hand.h"
#include "native/native_fixture.h"
#include "platform/pictures/picture_saver.h"
#include "viewer/picture_viewer.h"

#include <QPainter>
#include <QScrollBar>
#include <QThread>

using namespace native;
using namespace smoke;

namespace {

// Four quarters, each larger than the viewer.
constexpr QSize kLargeSize{3600, 2400};
constexpr QColor kLastQuarter(90, 20, 130);

} // namespace

class Viewing : public NativeTest {
protected:
    static bool showsAlone(const Form1& form, QColor colour, QSize size)
    {
        return colourAppears(onScreen(pictureArea(form)), colour, size);
    }

    QString addLargePicture() const
    {
        QImage image(kLargeSize, QImage::Format_RGB32);
        image.fill(kGreen);
        const QSize quarter = kLargeSize / 2;
        QPainter(&image).fillRect(QRect(QPoint(quarter.width(), quarter.height()), quarter),
                                  kLastQuarter);
        EXPECT_TRUE(platform::savePicture(platform::Picture(image), tree.path("large.bmp")));
        return tree.path("large.bmp");
    }
};

TEST_F(Viewing, ShowsTheTileClickedAndItsNeighbours)
{
    run([](Form1& form) {
        QWidget& tiles = tileArea(form);
        hand::click(tiles, placeOf(tiles, kGreen));
        EXPECT_TRUE(showsAlone(form, kGreen, kJpegSize));
        EXPECT_EQ(form.StateBar().panel(core::Panel::FileName).trimmed(), QStringLiteral("b.jpg"));

        hand::wheel(pictureArea(form), 1);
        EXPECT_TRUE(showsAlone(form, kBlue, kPcxSize));
        hand::click(part(form, "Tbmenu_6")); // back
        EXPECT_TRUE(showsAlone(form, kGreen, kJpegSize));
        hand::click(part(form, "Tbmenu_5")); // on
        EXPECT_TRUE(showsAlone(form, kBlue, kPcxSize));

        hand::doubleClick(tiles, placeOf(tiles, kRed));
        EXPECT_TRUE(showsAlone(form, kRed, kJpegSize));
    });
}

TEST_F(Viewing, ShowsThePictureWhosePathIsTyped)
{
    run([this](Form1& form) {
        openByPath(form, tree.path("pics/a.jpg"));
        EXPECT_TRUE(showsAlone(form, kRed, kJpegSize));
        EXPECT_EQ(form.StateBar().panel(core::Panel::FileName).trimmed(), QStringLiteral("a.jpg"));
    });
}

// A reader lets no events run, so what it tells reaches the screen without them.
TEST_F(Viewing, ShowsHowFarAPictureIsReadWhileItsRowsCome)
{
    constexpr int kGlance = 100; // milliseconds, longer than a screen needs for a picture
    constexpr int kMostGlances = 100;
    // Four raw planes of 1 by 101 pixels.
    const std::string header("8BPS\0\1\0\0\0\0\0\0\0\4\0\0\0\145\0\0\0\1\0\10\0\3", 26);
    tree.add({"tall.psd", header + std::string(14 + 404, '\0')});
    run([this](Form1& form) {
        const QRect strip = onScreen(part(form, "Gradient"));
        const auto isFilledTo = [&](int percent) {
            const QImage shot = screen();
            const auto isGrey = [&](int at) {
                return isNear(
                    shot.pixel(strip.left() + strip.width() * at / 100, strip.center().y()),
                    QColor(0xC0, 0xC0, 0xC0));
            };
            return isGrey(2) && isGrey(percent - 2) && !isGrey(percent + 2) && !isGrey(98);
        };
        bool seen = false;
        const formats::Hooks told = formats::hooks();
        formats::setHooks({told.report, [&](double fraction) {
                               const bool half = fraction == 0.5;
                               if (half) {
                                   QThread::msleep(kGlance);
                               }
                               told.progress(fraction);
                               for (int i = 0; half && !seen && i < kMostGlances; ++i) {
                                   QThread::msleep(kGlance);
                                   seen = isFilledTo(50);
                               }
                           }});
        openByPath(form, tree.path("tall.psd"));
        EXPECT_TRUE(waitUntil([&] { return form.cpvPicScroll1().PictureHeight() == 101; }));
        formats::setHooks(told);
        EXPECT_TRUE(seen);
        EXPECT_TRUE(part(form, "Gradient").isHidden());
    });
}

TEST_F(Viewing, HasAModeWithThePaneAndOneWithThePictureAlone)
{
    run([this](Form1& form) {
        const QRect pane = onScreen(tileArea(form));
        openByPath(form, tree.path("pics/b.jpg"));
        ASSERT_TRUE(showsAlone(form, kGreen, kJpegSize));
        const int besideThePane = onScreen(pictureArea(form)).width();

        hand::click(pictureArea(form));
        hand::key(form, Qt::Key_Escape);
        EXPECT_TRUE(waitUntil([&] { return boundsOf(screen(), pane, kRed).isNull(); }));
        EXPECT_GT(pictureArea(form).width(), besideThePane + pane.width() / 2);
        EXPECT_TRUE(showsAlone(form, kGreen, kJpegSize));
        EXPECT_EQ(stored("ObcBrowse"), QStringLiteral("0"));

        hand::key(form, Qt::Key_Escape);
        EXPECT_TRUE(tilesAppear(form));
        EXPECT_TRUE(showsAlone(form, kGreen, kJpegSize));
        EXPECT_EQ(pictureArea(form).width(), besideThePane);
    });
}

TEST_F(Viewing, FollowsTheRectangleDraggedInThePanView)
{
    const QString large = addLargePicture();
    run([&](Form1& form) {
        openByPath(form, large);
        const QRect viewer = onScreen(pictureArea(form));
        ASSERT_TRUE(waitUntil(
            [&] { return boundsOf(screen(), viewer, kGreen).width() > viewer.width() / 2; }));
        hand::click(pictureArea(form));
        hand::key(form, Qt::Key_F2);
        const QWidget& panView = part(form, "frmPanView");
        ASSERT_TRUE(colourAppears(onScreen(panView), kLastQuarter,
                                  boundsOf(screen(), onScreen(panView), kLastQuarter).size()));

        QWidget& clip = part(panView, "ClipRct");
        QWidget& pan = part(form, "frmPanView");
        const QPoint grip = clip.geometry().center();
        hand::drag(pan, grip, pan.rect().bottomRight() - grip);
        const cpvPicViewer& shown = form.cpvPicScroll1();
        for (const char* bar : {"hSB", "vSB"}) {
            const auto* scroll = shown.findChild<QScrollBar*>(QString::fromLatin1(bar));
            EXPECT_EQ(scroll->value(), scroll->maximum()) << bar;
        }
        // Left of the overview, and its own place in the picture is the last quarter's too.
        EXPECT_TRUE(
            waitUntil([&] { return boundsOf(screen(), viewer, kGreen).width() < pan.width(); }));

        // Keys belong to the viewer, and the overview has the focus.
        hand::click(pictureArea(form));
        hand::key(form, Qt::Key_F2);
        EXPECT_TRUE(waitUntil([&] { return boundsOf(screen(), viewer, kGreen).isNull(); }));
    });
}

TEST_F(Viewing, SetsTheZoomByTheZoomTool)
{
    run([this](Form1& form) {
        openByPath(form, tree.path("pics/b.jpg"));
        ASSERT_TRUE(showsAlone(form, kGreen, kJpegSize));
        hand::click(pictureArea(form));
        hand::key(form, Qt::Key_F5);
        QWidget* tool = core::windows().find(core::Window::fastZoom);
        ASSERT_NE(tool, nullptr);
        ASSERT_TRUE(isUp(*tool));

        const QPoint before = tool->pos();
        hand::drag(part(*tool, "Picture2"), QPoint(30, 10), QPoint(-90, -40));
        EXPECT_EQ(tool->pos(), before + QPoint(-90, -40));
        part(*tool, "scrZoom2").setFocus();
        hand::key(*tool, Qt::Key_Right);
        EXPECT_EQ(form.cpvPicScroll1().ZoomFactor(), 2);
        EXPECT_TRUE(showsAlone(form, kGreen, kJpegSize * 2));

        hand::click(part(*tool, "Max"));
        EXPECT_TRUE(
            waitUntil([] { return core::windows().find(core::Window::fastZoom) == nullptr; }));
    });
}

TEST_F(Viewing, CoversTheScreenAndGoesOn)
{
    run([this](Form1& form) {
        openByPath(form, tree.path("pics/b.jpg"));
        ASSERT_TRUE(showsAlone(form, kGreen, kJpegSize));
        hand::click(part(form, "KeyButton_fullscreen"));
        ASSERT_TRUE(isUp(form));
        EXPECT_TRUE(form.isMaximized());
        EXPECT_TRUE(waitUntil([&form] {
            return !boundsOf(screen(), onScreen(pictureArea(form)), kRed).isNull() ||
                   !boundsOf(screen(), onScreen(pictureArea(form)), kGreen).isNull() ||
                   !boundsOf(screen(), onScreen(pictureArea(form)), kBlue).isNull();
        }));
        hand::click(part(form, "KeyButton_stop"));
        openByPath(form, tree.path("pics/a.jpg"));
        EXPECT_TRUE(showsAlone(form, kRed, kJpegSize));
    });
}
