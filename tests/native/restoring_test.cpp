#include "native/native_fixture.h"

#include <QGuiApplication>
#include <QProcess>
#include <QWindow>

using namespace native;
using namespace smoke;

namespace {

constexpr int kPresses = 50;

} // namespace

// The button of the window's frame that takes the maximised state away.
class Restoring : public NativeTest {
protected:
    static bool onWayland() { return QGuiApplication::platformName() == QLatin1String("wayland"); }

    // On Wayland the frame is the program's own, and the display has no pointer to press it with.
    static void pressRestore(Form1& form, int times, int pause)
    {
        if (onWayland()) {
            for (int k = 0; k < times; ++k) {
                form.windowHandle()->setWindowStates(Qt::WindowNoState);
                QGuiApplication::processEvents();
            }
            return;
        }
        // The second box from the right in the frame's title, which is about as high as a box is
        // wide.
        const QRect frame = form.frameGeometry();
        const int title = form.windowHandle()->frameMargins().top();
        const QPoint button(frame.right() - title * 5 / 4, frame.top() + title / 2);
        QProcess process;
        process.start(QStringLiteral("xdotool"),
                      {QStringLiteral("mousemove"), QString::number(button.x()),
                       QString::number(button.y()), QStringLiteral("click"),
                       QStringLiteral("--repeat"), QString::number(times),
                       QStringLiteral("--delay"), QString::number(pause), QStringLiteral("1")});
        ASSERT_TRUE(waitUntil([&process] { return process.state() == QProcess::NotRunning; }));
    }

    // What a user sees of the window but for its animation.
    static QImage lowerPart(const Form1& form)
    {
        QRect place = onScreen(form);
        place.setTop(onScreen(part(form, "frmThumbnaillist")).top());
        return screen().copy(place);
    }

    class Changes : public QObject {
    public:
        explicit Changes(QObject& window) { window.installEventFilter(this); }
        int count = 0;

    private:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            count += event->type() == QEvent::WindowStateChange ? 1 : 0;
            return false;
        }
    };
};

TEST_F(Restoring, EndsInTheWindowAsItWas)
{
    run([](Form1& form) {
        ASSERT_TRUE(tilesSettle(form));
        const QRect place = onScreen(form);
        const QImage before = lowerPart(form);
        Changes changes(form);
        for (int k = 1; k <= kPresses; ++k) {
            pressRestore(form, 1, 0);
            ASSERT_TRUE(waitUntil([&] { return changes.count >= k; })) << k;
            ASSERT_TRUE(waitUntil([&] { return form.isMaximized() && onScreen(form) == place; }))
                << k;
        }
        EXPECT_TRUE(waitUntil([&] { return lowerPart(form) == before; }));
    });
}

TEST_F(Restoring, EndsInTheWindowAsItWasHoweverFast)
{
    run([](Form1& form) {
        ASSERT_TRUE(tilesSettle(form));
        const QRect place = onScreen(form);
        const QImage before = lowerPart(form);
        pressRestore(form, kPresses, 20);
        EXPECT_TRUE(waitUntil([&] { return form.isMaximized() && onScreen(form) == place; }));
        EXPECT_TRUE(waitUntil([&] { return lowerPart(form) == before; }));
    });
}
