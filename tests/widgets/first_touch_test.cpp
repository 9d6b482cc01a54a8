#include "widgets/first_touch.h"

#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <gtest/gtest.h>

using widgets::FirstTouch;

class FirstTouchTest : public testing::Test {
protected:
    QWidget m_window;
    QWidget m_part{&m_window};
    QWidget m_neighbour{&m_window};
    QWidget m_otherWindow;
};

TEST_F(FirstTouchTest, SeesWhatComesToAnyPartOfTheWindow)
{
    FirstTouch press(m_part);
    QTest::mousePress(&m_neighbour, Qt::LeftButton);
    EXPECT_TRUE(press.hasCome());

    FirstTouch key(m_part);
    QTest::keyPress(&m_window, Qt::Key_A);
    EXPECT_TRUE(key.hasCome());

    FirstTouch wheel(m_part);
    QWheelEvent turn({}, {}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&m_part, &turn);
    EXPECT_TRUE(wheel.hasCome());
}

TEST_F(FirstTouchTest, WaitsForATouchOfThatWindow)
{
    FirstTouch touch(m_part);
    m_window.show();
    m_window.resize(300, 200);
    QCoreApplication::processEvents();
    QTest::mouseMove(&m_part);
    QTest::keyPress(&m_otherWindow, Qt::Key_A);
    QTest::mousePress(&m_otherWindow, Qt::LeftButton);
    EXPECT_FALSE(touch.hasCome());
}
