#include "editing/scale_window.h"

#include "editing/edit_fixture.h"
#include "platform/pictures/transforms.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using test::numbered;

namespace {

class ScaleWindow : public EditTest {
protected:
    // The window for a picture of this size, which Image1 holds as in the command.
    void open(int width, int height)
    {
        const QImage image = numbered(width, height);
        form.Image1().setPicture(platform::Picture(image));
        showInViewer(image);
        core::state().ResizeSourceWidth = width;
        core::state().ResizeSourceHeight = height;
        core::state().ResizeCancelled = true;
        m_window = core::windows().load(core::Window::Form4);
    }

    template<typename Control> Control* control(const char* name) const
    {
        return m_window->findChild<Control*>(name);
    }
    [[nodiscard]] QLineEdit* width() const { return control<QLineEdit>("txtWidth"); }
    [[nodiscard]] QLineEdit* height() const { return control<QLineEdit>("txtHeight"); }
    void press(const char* button) const { control<QPushButton>(button)->click(); }
    [[nodiscard]] static bool isOpen() { return core::windows().isLoaded(core::Window::Form4); }

    void expectNothingHappened(const QSize& size) const
    {
        EXPECT_TRUE(isOpen());
        EXPECT_TRUE(form.log.isEmpty());
        EXPECT_EQ(core::state().ResizeSourceWidth, size.width());
        EXPECT_EQ(core::state().ResizeSourceHeight, size.height());
    }

    QWidget* m_window = nullptr;
};

} // namespace

TEST_F(ScaleWindow, ShowsTheOldSizeAsItLoads)
{
    open(100, 50);
    EXPECT_TRUE(control<QLabel>("lblOriginal")->text().contains("100"));
    EXPECT_TRUE(control<QLabel>("lblOriginal")->text().contains("50"));
    EXPECT_EQ(width()->text(), "100");
    EXPECT_EQ(height()->text(), "50");
    EXPECT_TRUE(control<QCheckBox>("chkKeepProportions")->isChecked());
    EXPECT_NE(control<QLabel>("lblWidth"), nullptr);
    EXPECT_NE(control<QLabel>("lblHeight"), nullptr);
}

TEST_F(ScaleWindow, KeepsTheProportionsBothWays)
{
    open(100, 50);
    width()->setText("50");
    EXPECT_EQ(height()->text(), "25");
    height()->setText("10");
    EXPECT_EQ(width()->text(), "20");
}

TEST_F(ScaleWindow, RoundsHalvesToTheEvenNumber)
{
    open(100, 50);
    width()->setText("101");
    EXPECT_EQ(height()->text(), "50");
    width()->setText("103");
    EXPECT_EQ(height()->text(), "52");
    EXPECT_EQ(width()->text(), "103");
}

TEST_F(ScaleWindow, LeavesTheOtherSideWithoutProportions)
{
    open(100, 50);
    control<QCheckBox>("chkKeepProportions")->setChecked(false);
    width()->setText("10");
    EXPECT_EQ(height()->text(), "50");
    height()->setText("7");
    EXPECT_EQ(width()->text(), "10");
}

TEST_F(ScaleWindow, LeavesTheOtherSideForATextThatIsNoNumber)
{
    open(100, 50);
    for (const char* text : {"", "abc", "5x", "nan", "inf", "99999999999"}) {
        width()->setText(text);
        EXPECT_EQ(height()->text(), "50") << text;
    }
}

TEST(ProportionalLength, HasNothingWithoutAProportion)
{
    EXPECT_EQ(editing::proportionalLength(10, 0, 50), std::nullopt);
    EXPECT_EQ(editing::proportionalLength(1e18, 1, 50), std::nullopt);
    EXPECT_EQ(editing::proportionalLength(10, 4, 2), 5);
}

TEST_F(ScaleWindow, ScalesUnderOk)
{
    open(100, 50);
    width()->setText(" 40 ");
    height()->setText(" 30");
    control<QCheckBox>("chkKeepProportions")->setChecked(false);
    width()->setText(" 41 ");
    press("cmdOk");
    test::expectPixels(shown(), platform::scaledTo(numbered(100, 50), QSize(41, 30)));
    EXPECT_FALSE(core::state().ResizeCancelled);
    EXPECT_EQ(core::state().ResizeSourceWidth, 41);
    EXPECT_EQ(core::state().ResizeSourceHeight, 30);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(exists("Images/Temp.bmp"));
}

TEST_F(ScaleWindow, StaysOpenForAFieldWithoutASize)
{
    open(100, 50);
    control<QCheckBox>("chkKeepProportions")->setChecked(false);
    for (const char* text : {"", "  ", "abc", "0", "-5", "5x", "99999999999", "2000000000"}) {
        width()->setText(text);
        press("cmdOk");
        expectNothingHappened(QSize(100, 50));
        width()->setText("100");
        height()->setText(text);
        press("cmdOk");
        expectNothingHappened(QSize(100, 50));
        height()->setText("50");
    }
    EXPECT_TRUE(core::state().ResizeCancelled);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(ScaleWindow, StaysOpenForASizeBeyondAllMemory)
{
    open(100, 50);
    for (const char* text : {"40000", "65536", "2147483647"}) {
        width()->setText(text);
        press("cmdOk");
        expectNothingHappened(QSize(100, 50));
    }
    control<QCheckBox>("chkKeepProportions")->setChecked(false);
    width()->setText("40000");
    height()->setText("40000");
    press("cmdOk");
    expectNothingHappened(QSize(100, 50));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(ScaleWindow, StaysOpenForASideThatTheViewerDoesNotCount)
{
    open(100, 50);
    control<QCheckBox>("chkKeepProportions")->setChecked(false);
    for (const char* text : {"32768", "40000", "67000000"}) {
        width()->setText(text);
        height()->setText("1");
        press("cmdOk");
        expectNothingHappened(QSize(100, 50));
        width()->setText("1");
        height()->setText(text);
        press("cmdOk");
        expectNothingHappened(QSize(100, 50));
    }
    width()->setText("32767");
    height()->setText("3");
    press("cmdOk");
    EXPECT_EQ(shown().size(), QSize(32767, 3));
    EXPECT_FALSE(isOpen());
}

TEST_F(ScaleWindow, ScalesPicturesOfOnePixel)
{
    open(1, 1);
    width()->setText("7");
    EXPECT_EQ(height()->text(), "7");
    press("cmdOk");
    test::expectPixels(shown(), test::filled(7, 7, numbered(1, 1).pixel(0, 0)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open(300, 2);
    width()->setText("1");
    EXPECT_EQ(height()->text(), "0");
    press("cmdOk");
    EXPECT_TRUE(isOpen());
    height()->setText("1");
    EXPECT_EQ(width()->text(), "150");
    press("cmdOk");
    EXPECT_EQ(shown().size(), QSize(150, 1));
}

TEST_F(ScaleWindow, CountsAsCancelledUnlessItScales)
{
    open(100, 50);
    core::state().ResizeCancelled = false;
    press("cmdCancel");
    EXPECT_TRUE(core::state().ResizeCancelled);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(ScaleWindow, MarksTheFieldThatHasTheFocus)
{
    open(100, 50);
    core::windows().show(core::Window::Form4);
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window));
    EXPECT_EQ(m_window->focusWidget(), width()); // the first field of the window
    const QColor resting = height()->palette().color(QPalette::Base);
    // Red in the lowest byte of 0xD6BEB5.
    EXPECT_EQ(width()->palette().color(QPalette::Base), QColor(0xB5, 0xBE, 0xD6));
    EXPECT_EQ(width()->selectedText(), "100");
    height()->setFocus();
    EXPECT_EQ(width()->palette().color(QPalette::Base), resting);
    EXPECT_EQ(height()->selectedText(), "50");
}

TEST_F(ScaleWindow, PressesItsButtonsByReturnAndEscape)
{
    open(100, 50);
    width()->setText("10");
    QTest::keyClick(width(), Qt::Key_Return);
    EXPECT_EQ(shown().size(), QSize(10, 5));
    EXPECT_FALSE(isOpen());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open(100, 50);
    core::windows().show(core::Window::Form4);
    QTest::keyClick(control<QPushButton>("cmdCancel"), Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(core::state().ResizeCancelled);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open(100, 50);
    QTest::keyClick(width(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(core::state().ResizeCancelled);
}
