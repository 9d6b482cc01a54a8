#include "core/window_registry.h"
#include "native/native_fixture.h"
#include "native/real_hand.h"
#include "shell/menus.h"
#include "viewer/picture_viewer.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <utility>

using namespace native;
using namespace native::real_hand;
using namespace smoke;

namespace {

const QColor kStripColour(200, 0, 200);
constexpr int kCaught = 24; // pixels near an edge at which a window manager may hold a window

} // namespace

// The pointer and the keyboard of the display system itself.
class RealInput : public NativeTest {
protected:
    void SetUp() override
    {
        NativeTest::SetUp();
        settings[QStringLiteral("InterfaceB")] = QStringLiteral("False");
        settings[QStringLiteral("InterfaceColor")] =
            QString::number(kStripColour.blue() << 16 | kStripColour.red());
        // A compositor inside of an X display counts movements, so both start in a corner.
        movePointer({screen().width() - 1, screen().height() - 1});
        movePointer({0, 0});
    }

    static bool shows(const Form1& form, QColor colour, QSize size)
    {
        return colourAppears(onScreen(pictureArea(form)), colour, size);
    }

    static QPoint tile(const Form1& form, QColor colour)
    {
        return boundsOf(screen(), onScreen(tileArea(form)), colour).center();
    }
};

TEST_F(RealInput, ShowsPicturesByPointerWheelAndKeys)
{
    run([this](Form1& form) {
        click(tile(form, kGreen));
        EXPECT_TRUE(shows(form, kGreen, kJpegSize));
        click(onScreen(pictureArea(form)).center(), 5); // the wheel
        EXPECT_TRUE(shows(form, kBlue, kPcxSize));

        click(onScreen(part(form, "Xiala")).center());
        key(QStringLiteral("ctrl+a"));
        xdotool({QStringLiteral("type"), tree.path("pics/a.jpg")});
        key(QStringLiteral("Return"));
        EXPECT_TRUE(shows(form, kRed, kJpegSize));

        click(onScreen(pictureArea(form)).center());
        key(QStringLiteral("Escape"));
        EXPECT_TRUE(waitUntil([&] { return !tileArea(form).isVisible(); }));
        EXPECT_TRUE(shows(form, kRed, kJpegSize));
    });
}

TEST_F(RealInput, LeavesTheKeysToTheMainWindowBesideTheZoomTool)
{
    run([this](Form1& form) {
        click(onScreen(pictureArea(form)).center());
        key(QStringLiteral("F5"));
        const auto findTool = [] { return core::windows().find(core::Window::fastZoom); };
        ASSERT_TRUE(waitUntil([&] { return findTool() != nullptr; }));
        const QWidget* tool = findTool();
        ASSERT_TRUE(isUp(*tool));
        click(onScreen(part(form, "Xiala")).center());
        key(QStringLiteral("ctrl+a"));
        xdotool({QStringLiteral("type"), tree.path("pics/b.jpg")});
        key(QStringLiteral("Return"));
        EXPECT_TRUE(shows(form, kGreen, kJpegSize));

        click(onScreen(part(*tool, "scrZoom2")).center());
        key(QStringLiteral("End"));
        EXPECT_TRUE(waitUntil([&] { return form.cpvPicScroll1().ZoomFactor() == 15; }));
        key(QStringLiteral("Home"));
        EXPECT_TRUE(shows(form, kGreen, kJpegSize));
        EXPECT_TRUE(tool->isVisible());
    });
}

TEST_F(RealInput, OpensTheRightClickMenuAtThePointer)
{
    run([](Form1& form) {
        click(tile(form, kGreen));
        ASSERT_TRUE(shows(form, kGreen, kJpegSize));
        const QMenu& menu = *form.menus().menu(QStringLiteral("CmdRm"));
        const QPoint pointer = onScreen(pictureArea(form)).center();
        click(pointer, 3);
        ASSERT_TRUE(opens(menu));
        // The middle of the picture is under the menu now, and no more than that.
        const QRect covered(pointer + QPoint(2, 2), menu.size() - QSize(4, 4));
        const QRect left(pointer - QPoint(100, 0), QSize(90, 50));
        EXPECT_TRUE(waitUntil([&] { return boundsOf(screen(), covered, kGreen).isNull(); }));
        EXPECT_EQ(boundsOf(screen(), left, kGreen), left);
        key(QStringLiteral("Escape"));
        EXPECT_TRUE(waitUntil([&] { return !menu.isVisible(); }));
        EXPECT_TRUE(shows(form, kGreen, kJpegSize));
    });
}

TEST_F(RealInput, MovesAWindowByItsStrip)
{
    run([](Form1& form) {
        click(tile(form, kGreen));
        ASSERT_TRUE(shows(form, kGreen, kJpegSize));
        form.OCbrowse(); // the pane has a strip of that colour too
        inModalWindow([&] { form.menus().entry(QStringLiteral("OptFav"), 0)->trigger(); },
                      [](const QWidget& window) {
                          const auto strip = [] {
                              const QImage shot = screen();
                              return boundsOf(shot, shot.rect(), kStripColour);
                          };
                          QRect before;
                          ASSERT_TRUE(waitUntil([&] { // a window manager may place it yet
                              return !std::exchange(before, strip()).isNull() && before == strip();
                          }));
                          const QPoint away(before.left() > 400 ? -240 : 240,
                                            before.top() > 400 ? -160 : 160);
                          const QPoint grip = before.center();
                          movePointer(grip);
                          xdotool({QStringLiteral("mousedown"), QStringLiteral("1")});
                          ASSERT_TRUE(waitUntil(
                              [] { return QApplication::mouseButtons() == Qt::LeftButton; }));
                          // The window manager takes the pointer over when it comes to it; a hand
                          // goes on moving meanwhile.
                          ASSERT_TRUE(waitUntil([&, step = 0]() mutable {
                              movePointer(grip + away / 4 + QPoint(++step % 2, 0));
                              return strip() != before;
                          }));
                          const QPoint first = strip().topLeft();
                          movePointer(grip + away);
                          EXPECT_TRUE(waitUntil([&] {
                              const QPoint rest = strip().topLeft() - first - away * 3 / 4;
                              return rest.manhattanLength() < kCaught;
                          })) << before.left()
                              << "," << before.top() << " " << first.x() << "," << first.y() << " "
                              << strip().left() << "," << strip().top();
                          xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
                          EXPECT_TRUE(window.isVisible());
                          EXPECT_EQ(strip().size(), before.size());
                          // The box is in the strip's right end.
                          click(strip().center() + QPoint(strip().width() / 2 - 14, 0));
                          EXPECT_TRUE(waitUntil([&] { return strip().isNull(); }));
                      });
    });
}
