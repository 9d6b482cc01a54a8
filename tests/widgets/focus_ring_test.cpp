#include "widgets/focus_ring.h"

#include <QApplication>
#include <QFocusEvent>
#include <gtest/gtest.h>

namespace {

class FocusRingTest : public testing::Test {
protected:
    FocusRingTest()
    {
        target.setFocusPolicy(Qt::StrongFocus);
        target.resize(60, 40);
        target.show();
    }

    void focus(QEvent::Type type, Qt::FocusReason reason)
    {
        QFocusEvent event(type, reason);
        QApplication::sendEvent(&target, &event);
    }

    QWidget target;
    widgets::FocusRing* ring = new widgets::FocusRing(target); // a child of the target
};

} // namespace

TEST_F(FocusRingTest, ShowsWhereTabLedTo)
{
    EXPECT_FALSE(ring->isVisible());
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    EXPECT_TRUE(ring->isVisible());
    focus(QEvent::FocusOut, Qt::TabFocusReason);
    EXPECT_FALSE(ring->isVisible());
    focus(QEvent::FocusIn, Qt::BacktabFocusReason);
    EXPECT_TRUE(ring->isVisible());
}

TEST_F(FocusRingTest, StaysAwayAfterAPressAndACommand)
{
    for (const Qt::FocusReason reason : {Qt::MouseFocusReason, Qt::OtherFocusReason}) {
        focus(QEvent::FocusIn, reason);
        EXPECT_FALSE(ring->isVisible()) << reason;
    }
}

TEST_F(FocusRingTest, ComesBackWithTheFocusThatAMenuBorrowed)
{
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        focus(QEvent::FocusIn, Qt::TabFocusReason);
        focus(QEvent::FocusOut, reason);
        EXPECT_FALSE(ring->isVisible());
        focus(QEvent::FocusIn, reason);
        EXPECT_TRUE(ring->isVisible());
        focus(QEvent::FocusOut, Qt::MouseFocusReason);
        focus(QEvent::FocusIn, reason);
        EXPECT_FALSE(ring->isVisible());
    }
}

TEST_F(FocusRingTest, RunsAlongTheEdgeAtAnySize)
{
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    for (const QSize size : {QSize(60, 40), QSize(200, 25), QSize(3, 3)}) {
        target.resize(size);
        EXPECT_EQ(ring->geometry(), target.rect());
        EXPECT_TRUE(ring->mask().contains(QPoint(0, 0)));
        EXPECT_TRUE(ring->mask().contains(target.rect().bottomRight()));
    }
    target.resize(60, 40);
    EXPECT_FALSE(ring->mask().contains(QPoint(30, 20)));
    const QImage shown = target.grab().toImage();
    EXPECT_NE(shown.pixelColor(0, 20), shown.pixelColor(2, 20));
    EXPECT_EQ(shown.pixelColor(30, 0), shown.pixelColor(0, 20));
}
