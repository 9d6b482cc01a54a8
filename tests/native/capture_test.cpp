#include "core/window_registry.h"
#include "native/hand.h"
#include "native/native_fixture.h"
#include "native/real_hand.h"
#include "platform/desktop/x11_server.h"
#include "shell/menus.h"
#include "support/stand_in_portal.h"
#include "viewer/picture_viewer.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QPushButton>
#include <QWindow>
#include <algorithm>
#include <array>
#include <xcb/xcb.h>

using namespace native;
using namespace native::real_hand;
using namespace smoke;
using core::Window;

namespace {

constexpr int kPatch = 50; // pixels, of one colour on the root window
const QRect kChosen(330, 210, 260, 170);

QRgb patchColour(int column, int row)
{
    return qRgb(column * 7, row * 11, (column * 5 + row * 3) & 0xFF);
}

// What the root window shows where no window is.
QImage rootPicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            picture.setPixel(x, y, patchColour(x / kPatch, y / kPatch));
        }
    }
    return picture;
}

void paintRootWindow(QSize size)
{
    xcb_connection_t* const server = platform::x11Server();
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(server)).data;
    const xcb_pixmap_t drawing = xcb_generate_id(server);
    const xcb_gcontext_t pen = xcb_generate_id(server);
    xcb_create_pixmap(server, screen.root_depth, drawing, screen.root,
                      static_cast<std::uint16_t>(size.width()),
                      static_cast<std::uint16_t>(size.height()));
    xcb_create_gc(server, pen, drawing, 0, nullptr);
    for (int y = 0; y < size.height(); y += kPatch) {
        for (int x = 0; x < size.width(); x += kPatch) {
            const std::uint32_t colour = patchColour(x / kPatch, y / kPatch) & 0xFFFFFF;
            xcb_change_gc(server, pen, XCB_GC_FOREGROUND, &colour);
            const xcb_rectangle_t patch{static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
                                        kPatch, kPatch};
            xcb_poly_fill_rectangle(server, drawing, pen, 1, &patch);
        }
    }
    xcb_change_window_attributes(server, screen.root, XCB_CW_BACK_PIXMAP, &drawing);
    xcb_clear_area(server, 0, screen.root, 0, 0, 0, 0);
    xcb_flush(server);
}

bool appears(Window which)
{
    return waitUntil([which] {
        const QWidget* window = core::windows().find(which);
        return window != nullptr && window->windowHandle() != nullptr &&
               window->windowHandle()->isExposed();
    });
}

bool goes(Window which)
{
    return waitUntil([which] { return !core::windows().isLoaded(which); });
}

void takeScreen(Form1& form)
{
    form.menus().entry(QStringLiteral("optFile"), 8)->trigger();
}

void choose(const QRect& part)
{
    click(part.topLeft());
    movePointer(part.center());
    click(part.topLeft() + QPoint(part.width(), part.height()));
}

} // namespace

// On the screen of an X server.
class Capture : public NativeTest {};

TEST_F(Capture, TakesThePixelsOfTheRootWindow)
{
    run([](Form1& form) {
        const QImage root = rootPicture(screen().size());
        paintRootWindow(root.size());
        takeScreen(form);
        ASSERT_TRUE(appears(Window::frmCapture));
        EXPECT_TRUE(form.isMinimized());
        EXPECT_TRUE(waitUntil([&] { return screen() == root; }));
        choose(kChosen);
        ASSERT_TRUE(goes(Window::frmCapture));
        EXPECT_EQ(form.cpvPicScroll1().Picture().flattened(), root.copy(kChosen));
        EXPECT_TRUE(form.isMinimized());
    });
}

TEST_F(Capture, StaysFrozenWhateverHappensBelow)
{
    run([](Form1& form) {
        const QImage root = rootPicture(screen().size());
        paintRootWindow(root.size());
        takeScreen(form);
        ASSERT_TRUE(appears(Window::frmCapture));
        QWidget other;
        other.setGeometry(300, 200, 400, 300);
        other.show();
        ASSERT_TRUE(isUp(other));
        core::windows().find(Window::frmCapture)->raise();
        choose(kChosen);
        ASSERT_TRUE(goes(Window::frmCapture));
        EXPECT_EQ(form.cpvPicScroll1().Picture().flattened(), root.copy(kChosen));
    });
}

TEST_F(Capture, ClosesAtEscapeAndAtTheRightButton)
{
    run([](Form1& form) {
        paintRootWindow(screen().size());
        takeScreen(form);
        ASSERT_TRUE(appears(Window::frmCapture));
        key(QStringLiteral("Escape"));
        EXPECT_TRUE(goes(Window::frmCapture));
        takeScreen(form);
        ASSERT_TRUE(appears(Window::frmCapture));
        click({100, 100}, 3);
        EXPECT_TRUE(goes(Window::frmCapture));
    });
}

TEST_F(Capture, PicksColoursWithoutATray)
{
    run([](Form1& form) {
        paintRootWindow(screen().size());
        click(onScreen(pictureArea(form)).center());
        key(QStringLiteral("F12"));
        ASSERT_TRUE(appears(Window::frmCaputreN));
        EXPECT_TRUE(waitUntil([&] { return form.isMinimized(); }));
        const QWidget& icon = *core::windows().find(Window::frmCaputreN);
        const auto& button = *icon.findChild<QPushButton*>(QStringLiteral("cmdColor"));
        clickIn(button);
        ASSERT_TRUE(appears(Window::frmGetColor));
        EXPECT_FALSE(icon.isVisible());
        movePointer({330, 180});
        click({320, 170});
        ASSERT_TRUE(goes(Window::frmGetColor));
        const QString expected =
            QString::number(patchColour(320 / kPatch, 170 / kPatch) & 0xFFFFFF, 16).toUpper();
        EXPECT_EQ(QApplication::clipboard()->text(), expected.rightJustified(6, '0'));
        EXPECT_TRUE(waitUntil([&] { return icon.isVisible() && icon.isActiveWindow(); }));
    });
}

// On a desktop with a tray.
class CaptureFromTray : public NativeTest {
protected:
    CaptureFromTray() { watcher.start(QStringLiteral(STAND_IN_WATCHER), QStringList()); }

    ~CaptureFromTray() override
    {
        watcher.closeWriteChannel();
        watcher.waitForFinished();
    }

    QString nextLine()
    {
        EXPECT_TRUE(waitUntil([this] { return watcher.canReadLine(); }));
        return QString::fromUtf8(watcher.readLine()).trimmed();
    }

    void clickIcon(const QString& service) const
    {
        QDBusMessage click = QDBusMessage::createMethodCall(
            service, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("Activate"));
        click << 10 << 10;
        panel.send(click);
    }

    QProcess watcher;
    QDBusConnection panel =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("panel"));
};

TEST_F(CaptureFromTray, TakesTheScreenAtADoubleClickOnTheIconOfTheKey)
{
    ASSERT_EQ(nextLine(), "watching");
    run([this](Form1& form) {
        const QImage root = rootPicture(screen().size());
        paintRootWindow(root.size());
        click(onScreen(pictureArea(form)).center());
        key(QStringLiteral("F12"));
        const QString icon = nextLine();
        ASSERT_FALSE(icon.isEmpty());
        EXPECT_TRUE(waitUntil([&] { return form.isMinimized(); }));
        ASSERT_TRUE(core::windows().isLoaded(Window::frmCaputreN));
        EXPECT_FALSE(core::windows().find(Window::frmCaputreN)->isVisible());
        EXPECT_TRUE(waitUntil([&] { return screen() == root; }));
        clickIcon(icon);
        clickIcon(icon);
        ASSERT_TRUE(appears(Window::frmCapture));
        choose(kChosen);
        ASSERT_TRUE(goes(Window::frmCapture));
        EXPECT_EQ(form.cpvPicScroll1().Picture().flattened(), root.copy(kChosen));
        EXPECT_TRUE(form.isMinimized());
        EXPECT_TRUE(core::windows().isLoaded(Window::frmCaputreN));
    });
}

// On a desktop that hands its screen out by its portal alone.
class CaptureByPortal : public NativeTest {
protected:
    CaptureByPortal() { portal.picture = rootPicture({1600, 1000}); }

    support::StandInPortal portal{tree.path("home")};
};

TEST_F(CaptureByPortal, TakesThePixelsThatThePortalHandsOver)
{
    run([this](Form1& form) {
        takeScreen(form);
        ASSERT_TRUE(appears(Window::frmCapture));
        EXPECT_TRUE(waitUntil([&] { return screen() == portal.picture; }));
        movePointer({screen().width() - 1, screen().height() - 1});
        movePointer({0, 0});
        choose(kChosen);
        ASSERT_TRUE(goes(Window::frmCapture));
        EXPECT_EQ(form.cpvPicScroll1().Picture().flattened(), portal.picture.copy(kChosen));
    });
}

TEST_F(CaptureByPortal, GivesTheMainWindowBackWhereThePortalSaysNo)
{
    run([this](Form1& form) {
        portal.answer = support::StandInPortal::Answer::No;
        openByPath(form, tree.path("pics/a.jpg"));
        ASSERT_TRUE(colourAppears(onScreen(pictureArea(form)), kRed, kJpegSize));
        takeScreen(form);
        EXPECT_TRUE(waitUntil([&] { return !portal.options.isEmpty(); }));
        EXPECT_TRUE(waitUntil([&] { return !form.isMinimized(); }));
        EXPECT_TRUE(colourAppears(onScreen(pictureArea(form)), kRed, kJpegSize));
        EXPECT_FALSE(core::windows().isLoaded(Window::frmCapture));
    });
}

// On a Wayland desktop that minimises no window, whose portal takes what stands on the screen.
class CaptureOfTiles : public NativeTest {
protected:
    CaptureOfTiles()
        : empty(screen())
    {
        portal.camera = [] { return screen(); };
    }

    void expectNothingOfTheProgram() const
    {
        ASSERT_FALSE(empty.isNull());
        EXPECT_EQ(portal.picture, empty);
    }

    // Wherever the desktop has put the window, which may be one half of the screen.
    static bool tilesAreOnScreen()
    {
        return waitUntil([] {
            const QImage shot = screen();
            return std::ranges::none_of(std::array{kRed, kGreen, kBlue}, [&](const QColor& tile) {
                return boundsOf(shot, shot.rect(), tile).isNull();
            });
        });
    }

    const QImage empty; // before the program is there
    support::StandInPortal portal{tree.path("home")};
};

TEST_F(CaptureOfTiles, HoldsNoneOfTheMainWindow)
{
    run([this](Form1& form) {
        takeScreen(form);
        ASSERT_TRUE(appears(Window::frmCapture));
        expectNothingOfTheProgram();
        hand::key(*core::windows().find(Window::frmCapture), Qt::Key_Escape);
        EXPECT_TRUE(tilesAreOnScreen());
    });
}

TEST_F(CaptureOfTiles, HoldsNoneOfTheWindowsOfTheKey)
{
    run([this](Form1& form) {
        for (int times = 0; times < 2; ++times) {
            hand::key(pictureArea(form), Qt::Key_F12);
            ASSERT_TRUE(appears(Window::frmCaputreN));
            const QWidget& icon = *core::windows().find(Window::frmCaputreN);
            icon.findChild<QPushButton*>(QStringLiteral("cmdImage"))->click();
            ASSERT_TRUE(appears(Window::frmCapture));
            expectNothingOfTheProgram();
            hand::key(*core::windows().find(Window::frmCapture), Qt::Key_Escape);
            EXPECT_TRUE(isUp(icon));
            EXPECT_TRUE(tilesAreOnScreen());
        }
    });
}
