#include "widgets/slider.h"

#include "widgets/value_tip.h"

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using widgets::PropertyError;

namespace {

QImage plain(QSize size, QColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

// A slider with a knob of 10 by 10 pixels that travels 100 of them, standing unless told otherwise.
class SliderTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_slider.setSliderIcon(plain({10, 10}, Qt::darkRed));
        m_slider.resize(20, 110);
        m_slider.show();
        connectLog();
    }

    void lay()
    {
        m_slider.setOrientation(0);
        m_slider.resize(110, 20);
    }

    void connectLog()
    {
        QObject::connect(&m_slider, &cpvSlider::Click, [this] { m_log << "Click"; });
        QObject::connect(&m_slider, &cpvSlider::ValueChanged, [this] { m_log << "Changed"; });
        QObject::connect(&m_slider, &cpvSlider::ArrivedFirst, [this] { m_log << "First"; });
        QObject::connect(&m_slider, &cpvSlider::ArrivedLast, [this] { m_log << "Last"; });
        QObject::connect(&m_slider, &cpvSlider::MouseDown, [this] { m_log << "Down"; });
        QObject::connect(&m_slider, &cpvSlider::MouseUp, [this] { m_log << "Up"; });
    }

    void press(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(&m_slider, button, {}, at);
    }
    void moveTo(QPoint at)
    {
        QMouseEvent event(QEvent::MouseMove, at, m_slider.mapToGlobal(at), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_slider, &event);
    }
    void release(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(&m_slider, button, {}, at);
    }
    [[nodiscard]] bool isTipShown() const
    {
        return m_slider.valueTip() != nullptr && m_slider.valueTip()->isVisible();
    }

    cpvSlider m_slider;
    QStringList m_log;
};

} // namespace

TEST_F(SliderTest, StartsWithItsDefaultsAtTheBottom)
{
    EXPECT_EQ(m_slider.Max(), 10);
    EXPECT_EQ(m_slider.Min(), 0);
    EXPECT_EQ(m_slider.Value(), 0);
    EXPECT_EQ(m_slider.Orientation(), 1);
    EXPECT_EQ(m_slider.RailStyle(), 0);
    EXPECT_EQ(m_slider.BackColor(), 0x8000000FU);
    EXPECT_TRUE(m_slider.Enabled());
    EXPECT_TRUE(m_slider.ShowValueTip());
    EXPECT_EQ(m_slider.knobRectangle(), QRect(5, 100, 10, 10));
}

TEST_F(SliderTest, RefusesWhatLiesOutsideItsBounds)
{
    ASSERT_EQ(m_slider.setMin(2), PropertyError::None);
    ASSERT_EQ(m_slider.setValue(7), PropertyError::None);
    m_log.clear();
    EXPECT_EQ(m_slider.setMax(2), PropertyError::InvalidValue);
    EXPECT_EQ(m_slider.setMax(1), PropertyError::InvalidValue);
    EXPECT_EQ(m_slider.setMin(10), PropertyError::InvalidValue);
    EXPECT_EQ(m_slider.setMin(11), PropertyError::InvalidValue);
    EXPECT_EQ(m_slider.setValue(1), PropertyError::InvalidValue);
    EXPECT_EQ(m_slider.setValue(11), PropertyError::InvalidValue);
    EXPECT_EQ(static_cast<int>(PropertyError::InvalidValue), 380);
    EXPECT_EQ(m_slider.Max(), 10);
    EXPECT_EQ(m_slider.Min(), 2);
    EXPECT_EQ(m_slider.Value(), 7);
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(SliderTest, LiftsTheValueWhenTheMinimumRises)
{
    EXPECT_EQ(m_slider.setMax(35), PropertyError::None);
    EXPECT_EQ(m_slider.setMin(5), PropertyError::None);
    EXPECT_EQ(m_slider.Value(), 5);
    EXPECT_EQ(m_log, QStringList({"Changed", "First"}));
}

TEST_F(SliderTest, LeavesTheValueWhenTheMaximumFallsBelowIt)
{
    ASSERT_EQ(m_slider.setValue(8), PropertyError::None);
    EXPECT_EQ(m_slider.setMax(5), PropertyError::None);
    EXPECT_EQ(m_slider.Value(), 8);
    EXPECT_EQ(m_slider.knobRectangle().top(), 0);
}

TEST_F(SliderTest, TellsOfNewValuesOnly)
{
    ASSERT_EQ(m_slider.setValue(4), PropertyError::None);
    EXPECT_EQ(m_log, QStringList({"Changed"}));
    ASSERT_EQ(m_slider.setValue(4), PropertyError::None);
    EXPECT_EQ(m_log, QStringList({"Changed"}));
    ASSERT_EQ(m_slider.setValue(10), PropertyError::None);
    EXPECT_EQ(m_log, QStringList({"Changed", "Changed", "Last"}));
    ASSERT_EQ(m_slider.setValue(0), PropertyError::None);
    EXPECT_EQ(m_log, QStringList({"Changed", "Changed", "Last", "Changed", "First"}));
}

TEST_F(SliderTest, MovesTheKnobWithTheValue)
{
    ASSERT_EQ(m_slider.setValue(10), PropertyError::None);
    EXPECT_EQ(m_slider.knobRectangle().top(), 0);
    ASSERT_EQ(m_slider.setValue(3), PropertyError::None);
    EXPECT_EQ(m_slider.knobRectangle().top(), 70);
    lay();
    EXPECT_EQ(m_slider.knobRectangle(), QRect(30, 5, 10, 10));
}

TEST_F(SliderTest, JumpsToAPressOnTheRail)
{
    press({10, 35});
    EXPECT_EQ(m_slider.knobRectangle().top(), 30);
    EXPECT_EQ(m_slider.Value(), 7);
    EXPECT_EQ(m_log, QStringList({"Changed", "Down"}));
    moveTo({10, 45});
    EXPECT_EQ(m_slider.Value(), 6);
    release({10, 45});
    EXPECT_EQ(m_log, QStringList({"Changed", "Down", "Changed", "Click", "Up"}));
}

TEST_F(SliderTest, DragsTheKnobFromWhereItWasGrabbedToBothEnds)
{
    press({8, 107});
    EXPECT_EQ(m_slider.Value(), 0);
    moveTo({8, 57});
    EXPECT_EQ(m_slider.knobRectangle().top(), 50);
    EXPECT_EQ(m_slider.Value(), 5);
    moveTo({8, -500});
    EXPECT_EQ(m_slider.knobRectangle().top(), 0);
    EXPECT_EQ(m_slider.Value(), 10);
    moveTo({8, 900});
    EXPECT_EQ(m_slider.knobRectangle().top(), 100);
    EXPECT_EQ(m_slider.Value(), 0);
    release({8, 107});
    EXPECT_EQ(m_log, QStringList({"Down", "Changed", "Changed", "Last", "Changed", "First", "Click",
                                  "Up"}));
}

TEST_F(SliderTest, DragsAlongARowToo)
{
    lay();
    press({2, 10});
    moveTo({52, 10});
    EXPECT_EQ(m_slider.Value(), 5);
    EXPECT_EQ(m_slider.knobRectangle().left(), 50);
    moveTo({400, 10});
    EXPECT_EQ(m_slider.Value(), 10);
    release({400, 10});
    EXPECT_EQ(m_log, QStringList({"Down", "Changed", "Changed", "Last", "Up"}));
}

TEST_F(SliderTest, KeepsTheDraggedKnobBetweenValues)
{
    press({8, 105});
    moveTo({8, 102});
    EXPECT_EQ(m_slider.knobRectangle().top(), 97);
    EXPECT_EQ(m_slider.Value(), 0);
    release({8, 102});
}

// The middle of a knob with an odd length lies between two pixels.
TEST_F(SliderTest, PlacesAnOddKnobFromTheHalfPixel)
{
    m_slider.setSliderIcon(plain({11, 11}, Qt::darkRed));
    m_slider.setOrientation(0);
    m_slider.resize(111, 20);
    ASSERT_EQ(m_slider.setMax(200), PropertyError::None);
    press({20, 10}); // at 14.5 of the travel
    EXPECT_EQ(m_slider.knobRectangle().left(), 14);
    EXPECT_EQ(m_slider.Value(), 29);
    moveTo({21, 10});
    EXPECT_EQ(m_slider.knobRectangle().left(), 16);
    EXPECT_EQ(m_slider.Value(), 31);
    release({21, 10});
}

TEST_F(SliderTest, ShowsTheValueThatIsSetDuringADrag)
{
    press({10, 35});
    ASSERT_EQ(m_slider.setValue(2), PropertyError::None);
    EXPECT_EQ(m_slider.valueTip()->text(), "2");
    EXPECT_EQ(m_slider.knobRectangle().top(), 30); // the hand has it
    release({10, 35});
}

TEST_F(SliderTest, EndsADragByAnyButton)
{
    press({10, 35});
    m_log.clear();
    release({10, 35}, Qt::RightButton);
    EXPECT_EQ(m_log, QStringList({"Up"}));
    EXPECT_FALSE(m_slider.isDragging());
    EXPECT_FALSE(isTipShown());
}

TEST_F(SliderTest, ClicksOnlyWhenReleasedInside)
{
    press({8, 105});
    release({200, 105});
    EXPECT_EQ(m_log, QStringList({"Down", "Up"}));
}

TEST_F(SliderTest, IgnoresTheRightButton)
{
    press({10, 35}, Qt::RightButton);
    EXPECT_FALSE(m_slider.isDragging());
    release({10, 35}, Qt::RightButton);
    EXPECT_EQ(m_slider.Value(), 0);
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(SliderTest, IgnoresTheMouseWhenDisabled)
{
    m_slider.setEnabled(false);
    press({10, 35});
    release({10, 35});
    EXPECT_EQ(m_slider.Value(), 0);
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(SliderTest, ShowsTheTipDuringADragOnlyAndKeepsTheFocus)
{
    QApplication::setActiveWindow(&m_slider);
    m_slider.setFocus();
    ASSERT_EQ(m_slider.setValue(3), PropertyError::None);
    EXPECT_FALSE(isTipShown());
    press({10, 35});
    ASSERT_TRUE(isTipShown());
    EXPECT_EQ(m_slider.valueTip()->text(), "7");
    EXPECT_EQ(m_slider.valueTip()->focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(m_slider.valueTip()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_EQ(QApplication::focusWidget(), &m_slider);
    EXPECT_EQ(QApplication::activeWindow(), &m_slider);
    moveTo({10, 5});
    EXPECT_EQ(m_slider.valueTip()->text(), "10");
    release({10, 5});
    EXPECT_FALSE(isTipShown());
}

TEST_F(SliderTest, ShowsNoTipWhenToldSo)
{
    m_slider.setShowValueTip(false);
    press({10, 35});
    moveTo({10, 45});
    EXPECT_FALSE(isTipShown());
    release({10, 45});
}

TEST_F(SliderTest, EndsADragWhenItIsHidden)
{
    press({10, 35});
    m_slider.hide();
    EXPECT_FALSE(m_slider.isDragging());
    EXPECT_FALSE(isTipShown());
}

TEST_F(SliderTest, ObeysTheKeyboard)
{
    QTest::keyClick(&m_slider, Qt::Key_Up);
    QTest::keyClick(&m_slider, Qt::Key_Right);
    QTest::keyClick(&m_slider, Qt::Key_PageUp);
    EXPECT_EQ(m_slider.Value(), 3);
    QTest::keyClick(&m_slider, Qt::Key_Down);
    QTest::keyClick(&m_slider, Qt::Key_Left);
    EXPECT_EQ(m_slider.Value(), 1);
    QTest::keyClick(&m_slider, Qt::Key_End);
    EXPECT_EQ(m_slider.Value(), 10);
    QTest::keyClick(&m_slider, Qt::Key_Up);
    EXPECT_EQ(m_slider.Value(), 10);
    QTest::keyClick(&m_slider, Qt::Key_Home);
    EXPECT_EQ(m_slider.Value(), 0);
}

TEST_F(SliderTest, StoresAndReadsItsProperties)
{
    const QStringList names{"BackColor",   "Enabled",   "Max",          "Min",        "Orientation",
                            "RailPicture", "RailStyle", "ShowValueTip", "SliderIcon", "Value"};
    EXPECT_EQ(m_slider.WriteProperties().keys(), names);
    lay();
    ASSERT_EQ(m_slider.setMax(400), PropertyError::None);
    ASSERT_EQ(m_slider.setMin(200), PropertyError::None);
    ASSERT_EQ(m_slider.setValue(300), PropertyError::None);
    m_slider.setRailStyle(99);
    m_slider.setRailPicture(plain({5, 3}, Qt::green));
    m_slider.setShowValueTip(false);

    cpvSlider other;
    other.ReadProperties(m_slider.WriteProperties());
    EXPECT_EQ(other.WriteProperties(), m_slider.WriteProperties());
    other.ReadProperties({});
    EXPECT_EQ(other.WriteProperties(), cpvSlider().WriteProperties());
}

TEST_F(SliderTest, DrawsItsRailAndItsPictures)
{
    m_slider.setBackColor(0x00FF00);
    QImage shot = m_slider.grab().toImage();
    EXPECT_EQ(shot.pixelColor(1, 1), QColor(0, 255, 0));
    EXPECT_EQ(shot.pixelColor(10, 105), QColor(Qt::darkRed));
    const QColor sunken = shot.pixelColor(8, 50);
    m_slider.setRailStyle(1);
    EXPECT_NE(m_slider.grab().toImage().pixelColor(8, 50), sunken);
    m_slider.setRailStyle(4);
    EXPECT_EQ(m_slider.RailStyle(), 1);

    m_slider.setRailStyle(99);
    m_slider.setRailPicture(plain({6, 30}, Qt::yellow));
    shot = m_slider.grab().toImage();
    EXPECT_EQ(shot.pixelColor(8, 2), QColor(Qt::yellow));
    EXPECT_EQ(shot.pixelColor(8, 60), QColor(Qt::yellow));
    EXPECT_EQ(shot.pixelColor(10, 50), QColor(0x80, 0x80, 0x80));
    EXPECT_EQ(shot.pixelColor(2, 50), QColor(0, 255, 0));
}

TEST_F(SliderTest, SpeaksToScreenReaders)
{
    m_slider.setAccessibleName("Thickness");
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&m_slider);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::Slider);
    EXPECT_EQ(reader->text(QAccessible::Name), "Thickness");
    QAccessibleValueInterface* value = reader->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->maximumValue().toInt(), 10);
    value->setCurrentValue(6);
    EXPECT_EQ(m_slider.Value(), 6);
    value->setCurrentValue(60);
    EXPECT_EQ(value->currentValue().toInt(), 6);
}

TEST(ValueTip, TakesTheSizeOfItsTextAndDrawsItsEdges)
{
    QWidget owner;
    frmValueTip tip(&owner);
    tip.setText("1");
    const QSize narrow = tip.size();
    tip.setText("1000000");
    EXPECT_GT(tip.width(), narrow.width());
    EXPECT_EQ(tip.height(), narrow.height());
    const QImage shot = tip.grab().toImage();
    EXPECT_EQ(shot.pixelColor(3, 0), QColor(0xDF, 0xDF, 0xDF));
    EXPECT_EQ(shot.pixelColor(0, 3), QColor(0xDF, 0xDF, 0xDF));
    EXPECT_EQ(shot.pixelColor(3, tip.height() - 1), QColor(0, 0, 0));
    EXPECT_EQ(shot.pixelColor(tip.width() - 1, 3), QColor(0, 0, 0));
}

TEST(ValueTip, StandsBesideTheKnobInsideTheScreen)
{
    const QRect screen(0, 0, 800, 600);
    EXPECT_EQ(widgets::tipBesideRow({100, 200, 110, 20}, {150, 205, 10, 10}, {30, 16}, screen),
              QPoint(140, 180));
    EXPECT_EQ(widgets::tipBesideColumn({100, 200, 20, 110}, {105, 250, 10, 10}, {30, 16}, screen),
              QPoint(124, 247));
    EXPECT_EQ(widgets::tipBesideRow({0, 5, 110, 20}, {0, 10, 10, 10}, {30, 16}, screen),
              QPoint(0, 0));
    EXPECT_EQ(widgets::tipBesideColumn({780, 580, 20, 110}, {785, 590, 10, 10}, {30, 16}, screen),
              QPoint(770, 584));
}
