#include "widgets/chameleon_button.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using widgets::ButtonState;

namespace {

void hover(QWidget& widget, QPoint position)
{
    QMouseEvent event(QEvent::MouseMove, position, widget.mapToGlobal(position), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

// A window with one button of 80 by 30 pixels in it.
class ChameleonButtonTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_window.setGeometry(100, 100, 300, 200);
        m_button.setGeometry(20, 20, 80, 30);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
        m_button.clearFocus();
        // What an earlier test left the pointer on must not reach this button by itself.
        QCursor::setPos(m_window.mapToGlobal(QPoint(250, 150)));
        QCoreApplication::processEvents();
    }

    QColor shownAt(int x, int y) { return m_button.grab().toImage().pixelColor(x, y); }

    QWidget m_window;
    chameleonButton m_button{&m_window, "Command1"};
};

} // namespace

TEST_F(ChameleonButtonTest, StartsWithItsDefaults)
{
    EXPECT_EQ(m_button.ButtonType(), 2);
    EXPECT_EQ(m_button.ColorScheme(), 1);
    EXPECT_EQ(m_button.objectName(), "Command1");
    EXPECT_EQ(m_button.Caption(), "Command1");
    EXPECT_TRUE(m_button.Enabled());
    EXPECT_TRUE(m_button.ShowFocusRect());
    EXPECT_EQ(m_button.BackColor(), 0xC0C0C0U);
    EXPECT_EQ(m_button.BackOver(), 0xC0C0C0U);
    EXPECT_EQ(m_button.ForeColor(), 0U);
    EXPECT_EQ(m_button.ForeOver(), 0U);
    EXPECT_EQ(m_button.MaskColor(), 0xC0C0C0U);
    EXPECT_TRUE(m_button.UseMaskColor());
    EXPECT_EQ(m_button.MousePointer(), 0);
    EXPECT_FALSE(m_button.HandPointer());
    EXPECT_FALSE(m_button.SoftBevel());
    EXPECT_EQ(m_button.PicturePosition(), 0);
    EXPECT_FALSE(m_button.UseGreyscale());
    EXPECT_EQ(m_button.SpecialEffect(), 0);
    EXPECT_FALSE(m_button.CheckBoxBehaviour());
    EXPECT_FALSE(m_button.Value());
}

TEST_F(ChameleonButtonTest, StoresItsPropertiesUnderTheirKeys)
{
    const QStringList keys{"BCOL",   "BCOLO", "BTYPE",  "CHECK", "COLTYPE", "ENAB",
                           "FCOL",   "FCOLO", "FOCUSR", "FONT",  "FX",      "HAND",
                           "MCOL",   "MICON", "MPTR",   "NGREY", "PICH",    "PICN",
                           "PICPOS", "SOFT",  "TX",     "UMCOL", "VALUE"};
    EXPECT_EQ(m_button.WriteProperties().keys(), keys);
}

TEST_F(ChameleonButtonTest, ReadsBackWhatItStored)
{
    QImage picture(3, 3, QImage::Format_RGB32);
    picture.fill(Qt::green);
    m_button.setButtonType(8);
    m_button.setColorScheme(2);
    m_button.setCaption("&Go");
    m_button.setEnabled(false);
    m_button.setFontBold(true);
    m_button.setShowFocusRect(false);
    m_button.setBackColor(0x010203);
    m_button.setMaskColor(0x040506);
    m_button.setHandPointer(true);
    m_button.setPictureOver(picture);
    m_button.setPicturePosition(3);
    m_button.setSpecialEffect(2);
    m_button.setCheckBoxBehaviour(true);
    m_button.setValue(true);
    const QVariantMap stored = m_button.WriteProperties();

    chameleonButton other(&m_window);
    other.ReadProperties(stored);
    EXPECT_EQ(other.WriteProperties(), stored);
    EXPECT_EQ(other.PictureOver().forRatio(1), picture);

    other.ReadProperties({});
    EXPECT_EQ(other.WriteProperties(), chameleonButton(&m_window).WriteProperties());
}

TEST_F(ChameleonButtonTest, TellsWhichPropertyChanged)
{
    QSignalSpy notices(&m_button, &chameleonButton::PropertyChanged);
    QImage picture(3, 3, QImage::Format_RGB32);
    picture.fill(Qt::green);
    m_button.setPictureOver(picture);
    m_button.setPictureNormal(picture);
    m_button.setButtonType(5);
    m_button.setButtonType(5);
    ASSERT_EQ(notices.count(), 3);
    EXPECT_EQ(notices[0][0].toString(), "PICO");
    EXPECT_EQ(notices[1][0].toString(), "PICN");
    EXPECT_EQ(notices[2][0].toString(), "BTYPE");
}

TEST_F(ChameleonButtonTest, IgnoresTypesThatDoNotExist)
{
    m_button.setButtonType(0);
    m_button.setButtonType(15);
    EXPECT_EQ(m_button.ButtonType(), 2);
    m_button.setPicturePosition(5);
    EXPECT_EQ(m_button.PicturePosition(), 0);
}

TEST_F(ChameleonButtonTest, DrawsNothingWhenNothingChanged)
{
    m_button.Redraw(ButtonState::Normal, true);
    const int drawn = m_button.redrawCount();
    m_button.Redraw(ButtonState::Normal, false);
    EXPECT_EQ(m_button.redrawCount(), drawn);
    m_button.Redraw(ButtonState::Pressed, false);
    EXPECT_EQ(m_button.redrawCount(), drawn + 1);
    m_button.Redraw(ButtonState::Pressed, false);
    EXPECT_EQ(m_button.redrawCount(), drawn + 1);
    m_button.Redraw(ButtonState::Pressed, true);
    EXPECT_EQ(m_button.redrawCount(), drawn + 2);
}

TEST_F(ChameleonButtonTest, DrawsNothingWithoutHeightOrWhileRefreshIsDisabled)
{
    const int drawn = m_button.redrawCount();
    m_button.DisableRefresh();
    m_button.setCaption("Later");
    m_button.Redraw(ButtonState::Pressed, true);
    EXPECT_EQ(m_button.redrawCount(), drawn);
    m_button.Refresh();
    EXPECT_EQ(m_button.redrawCount(), drawn + 1);

    m_button.resize(80, 0);
    m_button.Redraw(ButtonState::Pressed, true);
    EXPECT_EQ(m_button.redrawCount(), drawn + 1);
}

TEST_F(ChameleonButtonTest, LooksDisabledAndComesBack)
{
    m_button.setButtonType(9);
    m_button.setCaption("");
    m_button.setEnabled(false);
    const int drawn = m_button.redrawCount();
    m_button.setEnabled(true);
    EXPECT_EQ(m_button.redrawCount(), drawn + 1);
}

TEST_F(ChameleonButtonTest, ClicksWhenReleasedInside)
{
    const QSignalSpy clicks(&m_button, &chameleonButton::clicked);
    const QSignalSpy downs(&m_button, &chameleonButton::MouseDown);
    const QSignalSpy ups(&m_button, &chameleonButton::MouseUp);
    QTest::mouseClick(&m_button, Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 1);
    QTest::mousePress(&m_button, Qt::LeftButton);
    QTest::mouseRelease(&m_button, Qt::LeftButton, {}, {200, 10});
    EXPECT_EQ(clicks.count(), 1);
    QTest::mouseClick(&m_button, Qt::RightButton);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(downs.count(), 3);
    EXPECT_EQ(ups.count(), 3);
}

TEST_F(ChameleonButtonTest, LooksPressedWhileHeldByAnyButtonButTheRight)
{
    m_button.setCaption("");
    m_button.setShowFocusRect(false);
    m_button.setFocusPolicy(Qt::NoFocus);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::white));
    QTest::mousePress(&m_button, Qt::RightButton);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::white));
    QTest::mouseRelease(&m_button, Qt::RightButton);
    QTest::mousePress(&m_button, Qt::MiddleButton);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::black));
    QTest::mouseRelease(&m_button, Qt::MiddleButton);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::white));
}

TEST_F(ChameleonButtonTest, FlipsItsValueBeforeTheClickAsACheckBox)
{
    m_button.setCheckBoxBehaviour(true);
    bool seen = false;
    QObject::connect(&m_button, &chameleonButton::clicked, [&] { seen = m_button.Value(); });
    QTest::mouseClick(&m_button, Qt::LeftButton);
    EXPECT_TRUE(seen);
    EXPECT_TRUE(m_button.Value());
    QTest::keyClick(&m_button, Qt::Key_Space);
    EXPECT_FALSE(m_button.Value());
}

TEST_F(ChameleonButtonTest, KeepsItsValueWithoutCheckBoxBehaviour)
{
    m_button.setValue(true);
    QTest::mouseClick(&m_button, Qt::LeftButton);
    EXPECT_TRUE(m_button.Value());
}

TEST_F(ChameleonButtonTest, DrawsATrueValuePressedInEveryState)
{
    m_button.setCaption("");
    m_button.setShowFocusRect(false);
    m_button.setCheckBoxBehaviour(true);
    m_button.setValue(true);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::black));
    m_button.Redraw(ButtonState::Normal, true);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::black));
    m_button.setValue(false);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::white));
}

TEST_F(ChameleonButtonTest, SpaceClicksOnlyWithBothHalvesOfTheKey)
{
    const QSignalSpy clicks(&m_button, &chameleonButton::clicked);
    const QSignalSpy downs(&m_button, &chameleonButton::KeyDown);
    const QSignalSpy presses(&m_button, &chameleonButton::KeyPress);
    const QSignalSpy ups(&m_button, &chameleonButton::KeyUp);
    QTest::keyClick(&m_button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
    QTest::keyRelease(&m_button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
    QTest::keyPress(&m_button, Qt::Key_Space);
    QTest::keyPress(&m_button, Qt::Key_A);
    QTest::keyRelease(&m_button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(downs.count(), 3);
    EXPECT_EQ(presses.count(), 3);
    EXPECT_EQ(ups.count(), 3);
}

TEST_F(ChameleonButtonTest, ArrowsMoveTheFocus)
{
    chameleonButton next(&m_window, "Command2");
    next.setGeometry(20, 60, 80, 30);
    next.show();
    QApplication::setActiveWindow(&m_window);
    for (const auto& [key, back] :
         {std::pair(Qt::Key_Right, Qt::Key_Left), std::pair(Qt::Key_Down, Qt::Key_Up)}) {
        m_button.setFocus();
        ASSERT_TRUE(m_button.hasFocus());
        QTest::keyClick(&m_button, key);
        EXPECT_TRUE(next.hasFocus());
        QTest::keyClick(&next, back);
        EXPECT_TRUE(m_button.hasFocus());
    }
}

TEST_F(ChameleonButtonTest, ShowsItsFocus)
{
    QApplication::setActiveWindow(&m_window);
    chameleonButton other(&m_window);
    other.show();
    other.setFocus();
    m_button.setCaption("");
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::white));
    m_button.setFocus();
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::black));
    EXPECT_EQ(shownAt(4, 4), QColor(Qt::black));
    m_button.setShowFocusRect(false);
    EXPECT_EQ(shownAt(4, 4), QColor(0xC0, 0xC0, 0xC0));
    other.setFocus();
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::white));
    m_button.setDisplayedAsDefault(true);
    EXPECT_EQ(shownAt(0, 0), QColor(Qt::black));
}

TEST_F(ChameleonButtonTest, AnswersItsAccessKey)
{
    QApplication::setActiveWindow(&m_window);
    m_button.setCaption("Cut && &Paste");
    const QSignalSpy clicks(&m_button, &chameleonButton::clicked);
    QTest::keyClick(&m_window, Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(clicks.count(), 1);
    m_button.setCaption("Cut && Paste");
    QTest::keyClick(&m_window, Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ChameleonButtonTest, NoticesThePointerOnceAndItsLeavingOnce)
{
    const QSignalSpy overs(&m_button, &chameleonButton::MouseOver);
    const QSignalSpy outs(&m_button, &chameleonButton::MouseOut);
    QCursor::setPos(m_button.mapToGlobal(QPoint(10, 10)));
    hover(m_button, {10, 10});
    hover(m_button, {12, 10});
    EXPECT_EQ(overs.count(), 1);
    EXPECT_TRUE(m_button.MouseIsOver());
    EXPECT_TRUE(m_button.isOverTimerRunning());

    QCursor::setPos(m_window.mapToGlobal(QPoint(250, 150)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_button.MouseIsOver(); }));
    EXPECT_FALSE(m_button.isOverTimerRunning());
    QCoreApplication::processEvents();
    EXPECT_EQ(outs.count(), 1);
    EXPECT_EQ(overs.count(), 1);
}

TEST_F(ChameleonButtonTest, StopsWatchingThePointerWhenHidden)
{
    const QSignalSpy outs(&m_button, &chameleonButton::MouseOut);
    hover(m_button, {10, 10});
    m_button.hide();
    EXPECT_FALSE(m_button.isOverTimerRunning());
    EXPECT_EQ(outs.count(), 1);
}

TEST_F(ChameleonButtonTest, DoesNotLightUpForADrag)
{
    QMouseEvent drag(QEvent::MouseMove, QPoint(10, 10), m_button.mapToGlobal(QPoint(10, 10)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&m_button, &drag);
    EXPECT_FALSE(m_button.MouseIsOver());
}

TEST_F(ChameleonButtonTest, ShowsTheOverColoursOfItsOwnScheme)
{
    m_button.setButtonType(10);
    m_button.setCaption("");
    m_button.setColorScheme(2);
    m_button.setBackColor(0x0000FF);
    m_button.setBackOver(0x00FF00);
    EXPECT_EQ(shownAt(40, 15), QColor(255, 0, 0));
    hover(m_button, {10, 10});
    EXPECT_EQ(shownAt(40, 15), QColor(0, 255, 0));
}

TEST_F(ChameleonButtonTest, SwapsThePictureUnderThePointer)
{
    QImage red(4, 4, QImage::Format_RGB32);
    red.fill(Qt::red);
    QImage blue(4, 4, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    m_button.setButtonType(11);
    m_button.setCaption("");
    m_button.setPictureNormal(red);
    m_button.setPictureOver(blue);
    EXPECT_EQ(shownAt(40, 15), QColor(Qt::red));
    hover(m_button, {10, 10});
    EXPECT_EQ(shownAt(40, 15), QColor(Qt::blue));
}

TEST_F(ChameleonButtonTest, LetsItsContainerShineThroughTheTransparentStyle)
{
    QPalette colours = m_window.palette();
    colours.setColor(QPalette::Window, QColor(20, 140, 60));
    m_window.setPalette(colours);
    m_button.setButtonType(11);
    m_button.setCaption("");
    const QImage shot = m_window.grab().toImage();
    EXPECT_EQ(shot.pixelColor(25, 25), QColor(20, 140, 60));
}

TEST_F(ChameleonButtonTest, TakesTheColoursOfItsContainer)
{
    QPalette colours = m_window.palette();
    colours.setColor(QPalette::Window, QColor(20, 140, 60));
    m_window.setPalette(colours);
    m_button.setColorScheme(4);
    EXPECT_EQ(m_button.workingPalette().Face, base::rgb(20, 140, 60));
    colours.setColor(QPalette::Window, QColor(90, 90, 90));
    m_window.setPalette(colours);
    EXPECT_EQ(m_button.workingPalette().Face, base::rgb(90, 90, 90));
}

TEST_F(ChameleonButtonTest, MissesInTheCornerOfAnOval)
{
    const QSignalSpy clicks(&m_button, &chameleonButton::clicked);
    m_button.setButtonType(13);
    EXPECT_FALSE(m_button.mask().isEmpty());
    QTest::mouseClick(&m_button, Qt::LeftButton, {}, {2, 2});
    EXPECT_EQ(clicks.count(), 0);
    QTest::mouseClick(&m_button, Qt::LeftButton, {}, {40, 15});
    EXPECT_EQ(clicks.count(), 1);
    hover(m_button, {1, 28});
    EXPECT_FALSE(m_button.MouseIsOver());
}

TEST_F(ChameleonButtonTest, ShapesItselfAfterASizeChange)
{
    m_button.setButtonType(1);
    m_button.resize(50, 40);
    EXPECT_EQ(m_button.mask(), widgets::shapeRegion(1, {50, 40}));
    m_button.setButtonType(2);
    EXPECT_TRUE(m_button.mask().isEmpty());
}

TEST_F(ChameleonButtonTest, ShowsTheHand)
{
    m_button.setHandPointer(true);
    EXPECT_EQ(m_button.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(m_button.MousePointer(), 99);
    m_button.setHandPointer(false);
    EXPECT_TRUE(m_button.MouseIcon().isNull());
    EXPECT_EQ(m_button.cursor().shape(), Qt::ArrowCursor);
    m_button.setMousePointer(11);
    EXPECT_EQ(m_button.cursor().shape(), Qt::WaitCursor);
}

TEST_F(ChameleonButtonTest, ForwardsTheFont)
{
    m_button.setFontBold(true);
    m_button.setFontItalic(true);
    m_button.setFontUnderline(true);
    m_button.setFontSize(14);
    EXPECT_TRUE(m_button.Font().bold());
    EXPECT_TRUE(m_button.FontItalic());
    EXPECT_TRUE(m_button.FontUnderline());
    EXPECT_EQ(m_button.FontSize(), 14.0);
    EXPECT_EQ(m_button.FontName(), m_button.font().family());
}

TEST_F(ChameleonButtonTest, SpeaksToScreenReaders)
{
    m_button.setCaption("&Save");
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&m_button);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::Button);
    EXPECT_EQ(reader->text(QAccessible::Name), "Save");

    const QSignalSpy clicks(&m_button, &chameleonButton::clicked);
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks.count() == 1; }));

    m_button.setCheckBoxBehaviour(true);
    EXPECT_EQ(reader->role(), QAccessible::CheckBox);
    reader->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(m_button.Value());
    EXPECT_EQ(clicks.count(), 2);
    EXPECT_TRUE(reader->state().checked);
}
