#include "acquire/capture_fixture.h"
#include "acquire/capture_start.h"
#include "base/web_colour.h"

#include <QClipboard>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>

using core::Window;

namespace {

class ColourPicker : public CaptureTest {
protected:
    void SetUp() override
    {
        platform::setClipboardText(QStringLiteral("before"));
        QImage picture = screens.frozen->picture;
        picture.setPixel(300, 200, qRgb(10, 0, 255));
        picture.setPixel(301, 200, qRgb(255, 0, 0));
        screens.show(picture);
        acquire::startColourPicker();
        ASSERT_TRUE(isOpen(Window::frmGetColor));
    }

    static QFrame& box()
    {
        return *core::windows().find(Window::frmGetColor)->findChild<QFrame*>("picPixel");
    }
    static QString text() { return box().findChild<QLabel*>("lblColor")->text(); }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
};

} // namespace

TEST_F(ColourPicker, ShowsTheColourBelowThePointer)
{
    EXPECT_EQ(text(), "Web Color: N/A");
    movePointer({300, 200});
    EXPECT_EQ(text(), " Web Color: #0A00FF");
    EXPECT_EQ(box().palette().color(QPalette::Window), QColor(10, 0, 255));
    movePointer({301, 200});
    EXPECT_EQ(text(), " Web Color: #FF0000");
    EXPECT_TRUE(box().isVisible());
}

TEST_F(ColourPicker, CopiesTheColourAtAnyButton)
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        platform::setClipboardText(QStringLiteral("before"));
        acquire::startColourPicker();
        movePointer({300, 200});
        press({300, 200}, button);
        EXPECT_EQ(clipboard(), "0A00FF");
        EXPECT_FALSE(core::windows().isLoaded(Window::frmGetColor));
    }
}

TEST_F(ColourPicker, TakesThePlaceOfAPictureOnTheClipboard)
{
    platform::setClipboardPicture(platform::Picture(QImage(2, 2, QImage::Format_RGB32)));
    movePointer({301, 200});
    press({301, 200});
    EXPECT_EQ(clipboard(), "FF0000");
    EXPECT_FALSE(platform::clipboardPicture());
}

TEST_F(ColourPicker, CopiesAnEmptyTextBeforeThePointerMoves)
{
    press({300, 200});
    EXPECT_EQ(clipboard(), "");
    EXPECT_FALSE(core::windows().isLoaded(Window::frmGetColor));
}

TEST_F(ColourPicker, LeavesTheClipboardAtEscape)
{
    movePointer({300, 200});
    pressKey(Window::frmGetColor, Qt::Key_Escape);
    EXPECT_EQ(clipboard(), "before");
    EXPECT_FALSE(core::windows().isLoaded(Window::frmGetColor));
}

TEST_F(ColourPicker, KeepsItsBoxInsideOfTheScreen)
{
    const QSize window = pane().size();
    const QPoint end(window.width(), window.height());
    const auto boxAt = [](QPoint pointer) {
        movePointer(pointer);
        return box().pos() - pointer;
    };
    EXPECT_EQ(boxAt({1, 1}), QPoint(12, 12));
    EXPECT_EQ(boxAt(end - QPoint(150, 50)), QPoint(12, 12));
    EXPECT_EQ(boxAt(end - QPoint(149, 50)), QPoint(-154, 12));
    EXPECT_EQ(boxAt(end - QPoint(150, 49)), QPoint(12, -54));
    EXPECT_EQ(boxAt(end - QPoint(1, 1)), QPoint(-154, -54));
    movePointer(end - QPoint(150, 50));
    EXPECT_TRUE(pane().rect().contains(box().geometry()));
}

TEST_F(ColourPicker, GoesOverToTheOtherScreenWithThePointer)
{
    core::windows().unload(Window::frmGetColor);
    screens.frozen->screens = {{{0, 0, 400, 800}, {0, 0, 400, 800}},
                               {{400, 0, 200, 400}, {400, 0, 400, 800}}};
    acquire::startColourPicker();
    movePointer({10, 10}, 0);
    movePointer({50, 100}, 1);
    EXPECT_EQ(box().parentWidget(), &pane(1));
    EXPECT_TRUE(box().isVisible());
    movePointer({51, 101}, 1);
    press({51, 101}, Qt::LeftButton, 1);
    EXPECT_EQ(clipboard(), QString::fromStdString(base::webColour(base::rgb(502 & 0xFF, 202, 1))));
    deleteUnloaded();
}
