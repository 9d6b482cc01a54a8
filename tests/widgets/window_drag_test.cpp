#include "widgets/window_drag.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

void moveMouse(QWidget& widget, QPoint globalPosition, Qt::MouseButtons buttons = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseMove, widget.mapFromGlobal(globalPosition), globalPosition,
                      Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void releaseMouse(QWidget& widget, QPoint globalPosition)
{
    QMouseEvent event(QEvent::MouseButtonRelease, widget.mapFromGlobal(globalPosition),
                      globalPosition, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST(WindowDrag, MovesAChildInsideItsParentUntilTheRelease)
{
    QWidget parent;
    parent.resize(400, 300);
    QWidget child(&parent);
    child.setGeometry(50, 60, 100, 100);
    parent.show();

    const QPoint press = child.mapToGlobal(QPoint(10, 5));
    widgets::beginDrag(child, press);
    moveMouse(child, press + QPoint(30, 20));
    EXPECT_EQ(child.pos(), QPoint(80, 80));

    releaseMouse(child, press + QPoint(30, 20));
    moveMouse(child, press + QPoint(90, 90));
    EXPECT_EQ(child.pos(), QPoint(80, 80));
}

TEST(WindowDrag, MovesAWindowThatTheDesktopWillNotMove)
{
    QWidget window(nullptr, Qt::FramelessWindowHint);
    window.setGeometry(100, 100, 200, 100);
    window.show();
    const QPoint before = window.pos();

    const QPoint press = window.mapToGlobal(QPoint(20, 10));
    widgets::beginDrag(window, press);
    moveMouse(window, press + QPoint(-15, 25));
    EXPECT_EQ(window.pos(), before + QPoint(-15, 25));
    releaseMouse(window, press);
}

TEST(WindowDrag, KeepsAPartOfAChildInReach)
{
    EXPECT_EQ(widgets::reachablePlace({10, 20}, 100, 400, 300), QPoint(10, 20));
    EXPECT_EQ(widgets::reachablePlace({-500, -5}, 100, 400, 300), QPoint(-60, 0));
    EXPECT_EQ(widgets::reachablePlace({900, 900}, 100, 400, 300), QPoint(360, 276));
    EXPECT_EQ(widgets::reachablePlace({900, 900}, 100, 20, 10), QPoint(-20, 0));
}
