#include "viewer_window.h"

#include <QBuffer>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QWheelEvent>

namespace {

class PictureViewerInput : public ViewerWindow {
protected:
    void sendKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {},
                 const QString& text = {})
    {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(&viewer, &event);
    }

    [[nodiscard]] Qt::CursorShape pointer() const { return iDst()->cursor().shape(); }
};

TEST_F(PictureViewerInput, DragsThePictureWithTheLeftButton)
{
    viewer.setPicture(plainPicture(1000, 800));
    press(iDst(), {100, 100});
    drag(iDst(), {80, 130});
    EXPECT_EQ(hSB()->value(), 328);
    EXPECT_EQ(vSB()->value(), 228);
    drag(iDst(), {90, 120});
    EXPECT_EQ(hSB()->value(), 318);
    release(iDst(), {90, 120});
    drag(iDst(), {0, 0});
    EXPECT_EQ(hSB()->value(), 318);
}

TEST_F(PictureViewerInput, StopsADragAtBothEnds)
{
    viewer.setPicture(plainPicture(1000, 800));
    press(iDst(), {100, 100});
    drag(iDst(), {2000, 2000});
    EXPECT_EQ(hSB()->value(), 0);
    EXPECT_EQ(vSB()->value(), 0);
    drag(iDst(), {-2000, -2000});
    EXPECT_EQ(hSB()->value(), 615);
    EXPECT_EQ(vSB()->value(), 515);
}

TEST_F(PictureViewerInput, DragsWithHiddenBars)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setScrollBars(1);
    press(iDst(), {100, 100});
    drag(iDst(), {90, 100});
    EXPECT_EQ(viewer.CurrentLeft(), 310);
}

TEST_F(PictureViewerInput, ReportsAPressWithCtrlButDoesNotDrag)
{
    viewer.setPicture(plainPicture(1000, 800));
    QSignalSpy down(&viewer, &cpvPicViewer::MouseDown);
    press(iDst(), {100, 100}, Qt::ControlModifier);
    drag(iDst(), {50, 50});
    EXPECT_EQ(hSB()->value(), 308);
    ASSERT_EQ(down.count(), 1);
    EXPECT_EQ(down[0][1].toInt(), 2);
}

TEST_F(PictureViewerInput, DoesNotDragWhileMouseScrollingIsOff)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setMouseScrolling(false);
    press(iDst(), {100, 100});
    drag(iDst(), {50, 50});
    EXPECT_EQ(hSB()->value(), 308);
}

TEST_F(PictureViewerInput, DragsWithoutMovingWhatNeedsNoScrolling)
{
    viewer.setPicture(plainPicture(100, 800));
    press(iDst(), {50, 100});
    drag(iDst(), {40, 90});
    EXPECT_EQ(hSB()->value(), 0);
    EXPECT_EQ(vSB()->value(), 260);
}

TEST_F(PictureViewerInput, RaisesScrolledForEachBarThatADragMoves)
{
    viewer.setPicture(plainPicture(1000, 800));
    QSignalSpy scrolled(&viewer, &cpvPicViewer::Scrolled);
    press(iDst(), {100, 100});
    drag(iDst(), {90, 90});
    EXPECT_EQ(scrolled.count(), 2);
    drag(iDst(), {80, 90});
    EXPECT_EQ(scrolled.count(), 3);
}

TEST_F(PictureViewerInput, ReportsPicturePixels)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setZoomFactor(3);
    hSB()->setValue(100);
    vSB()->setValue(50);
    QSignalSpy down(&viewer, &cpvPicViewer::MouseDown);
    QSignalSpy moved(&viewer, &cpvPicViewer::MouseMove);
    QSignalSpy up(&viewer, &cpvPicViewer::MouseUp);
    sendMouse(iDst(), QEvent::MouseButtonPress, {7, 8}, Qt::RightButton, Qt::RightButton,
              Qt::ShiftModifier);
    sendMouse(iDst(), QEvent::MouseMove, {8, 8}, Qt::NoButton, Qt::NoButton);
    sendMouse(iDst(), QEvent::MouseButtonRelease, {9, 10}, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(down.takeFirst(), (QVariantList{2, 1, 35, 19}));
    EXPECT_EQ(moved.takeFirst(), (QVariantList{0, 0, 36, 19}));
    EXPECT_EQ(up.takeFirst(), (QVariantList{2, 0, 36, 20}));
}

TEST_F(PictureViewerInput, TellsPressesBesideThePicture)
{
    QSignalSpy down(&viewer, &cpvPicViewer::MouseDown);
    QSignalSpy beside(&viewer, &cpvPicViewer::MouseDownBack);
    const auto rightPress = [](QWidget* target) {
        sendMouse(target, QEvent::MouseButtonPress, {3, 4}, Qt::RightButton, Qt::RightButton);
    };
    rightPress(&viewer); // empty
    viewer.setPicture(plainPicture(100, 50));
    rightPress(&viewer);
    EXPECT_EQ(beside.count(), 2);
    press(&viewer, {3, 4});
    EXPECT_EQ(beside.takeLast(), QVariantList{1});
    viewer.setPicture(plainPicture(1000, 800));
    for (QWidget* part : {static_cast<QWidget*>(hSB()), static_cast<QWidget*>(vSB())}) {
        beside.clear();
        const int value = hSB()->value();
        rightPress(part);
        EXPECT_EQ(beside.count(), 1);
        EXPECT_EQ(hSB()->value(), value);
    }
    rightPress(iDst());
    EXPECT_EQ(down.count(), 1);
    EXPECT_EQ(beside.count(), 1);
}

TEST_F(PictureViewerInput, TellsClicksOnThePictureFromThoseBesideIt)
{
    viewer.setPicture(plainPicture(100, 50));
    QStringList order;
    QObject::connect(&viewer, &cpvPicViewer::MouseDown, &viewer, [&] { order << "down"; });
    QObject::connect(&viewer, &cpvPicViewer::MouseUp, &viewer, [&] { order << "up"; });
    QObject::connect(&viewer, &cpvPicViewer::Click, &viewer, [&] { order << "click"; });
    QObject::connect(&viewer, &cpvPicViewer::DblClick, &viewer, [&] { order << "double"; });
    QObject::connect(&viewer, &cpvPicViewer::ClickBack, &viewer, [&] { order << "back"; });
    press(iDst(), {10, 10});
    release(iDst(), {10, 10});
    sendMouse(iDst(), QEvent::MouseButtonDblClick, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    release(iDst(), {10, 10});
    press(&viewer, {5, 5});
    release(&viewer, {5, 5});
    EXPECT_EQ(order, QStringList({"down", "up", "click", "double", "up", "back"}));
}

TEST_F(PictureViewerInput, ReleasedElsewhereIsNoClick)
{
    viewer.setPicture(plainPicture(100, 50));
    QSignalSpy clicks(&viewer, &cpvPicViewer::Click);
    press(iDst(), {10, 10});
    release(iDst(), {-10, 10});
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(PictureViewerInput, ForwardsKeysWithTheirNumbers)
{
    QSignalSpy down(&viewer, &cpvPicViewer::KeyDown);
    QSignalSpy pressed(&viewer, &cpvPicViewer::KeyPress);
    QSignalSpy up(&viewer, &cpvPicViewer::KeyUp);
    sendKey(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier, "A");
    sendKey(QEvent::KeyRelease, Qt::Key_A, Qt::ShiftModifier);
    sendKey(QEvent::KeyPress, Qt::Key_F2);
    EXPECT_EQ(down.takeFirst(), (QVariantList{65, 1}));
    EXPECT_EQ(pressed.takeFirst(), (QVariantList{65}));
    EXPECT_EQ(up.takeFirst(), (QVariantList{65, 1}));
    EXPECT_EQ(down.takeFirst(), (QVariantList{113, 0}));
    EXPECT_TRUE(pressed.isEmpty());
}

TEST_F(PictureViewerInput, TakesTheFocusByAPressOnThePicture)
{
    viewer.setPicture(plainPicture(1000, 800));
    QWidget other(&host);
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    host.activateWindow();
    other.setFocus();
    press(iDst(), {10, 10});
    EXPECT_EQ(host.focusWidget(), &viewer);
    other.setFocus();
    viewer.giveFocus();
    EXPECT_EQ(host.focusWidget(), &viewer);
    EXPECT_EQ(hSB()->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(vSB()->focusPolicy(), Qt::NoFocus);
}

TEST_F(PictureViewerInput, KeepsTheFocusWhileThePictureIsTakenAway)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.giveFocus();
    viewer.setPicture({});
    EXPECT_EQ(host.focusWidget(), &viewer);
}

TEST_F(PictureViewerInput, ShowsWhatADragDoesByItsPointer)
{
    viewer.setPicture(plainPicture(100, 50));
    EXPECT_EQ(pointer(), Qt::ArrowCursor);
    viewer.setPicture(plainPicture(1000, 800));
    EXPECT_EQ(pointer(), Qt::OpenHandCursor);
    press(iDst(), {10, 10});
    EXPECT_EQ(pointer(), Qt::ClosedHandCursor);
    release(iDst(), {10, 10});
    EXPECT_EQ(pointer(), Qt::OpenHandCursor);
    sendKey(QEvent::KeyPress, Qt::Key_Control); // the state before the press
    EXPECT_EQ(pointer(), Qt::CrossCursor);
    sendKey(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(pointer(), Qt::OpenHandCursor);
    viewer.setMouseScrolling(false);
    EXPECT_EQ(pointer(), Qt::ArrowCursor);
    viewer.setMouseScrolling(true);
    EXPECT_EQ(pointer(), Qt::OpenHandCursor);
    viewer.setBestFitMode(true);
    EXPECT_EQ(pointer(), Qt::ArrowCursor);
}

TEST_F(PictureViewerInput, CtrlEndsADrag)
{
    viewer.setPicture(plainPicture(1000, 800));
    press(iDst(), {100, 100});
    sendKey(QEvent::KeyPress, Qt::Key_Control); // the state before the press
    drag(iDst(), {50, 50});
    EXPECT_EQ(hSB()->value(), 308);
}

TEST_F(PictureViewerInput, TakesItsPointersFromTheDeliveredFiles)
{
    QImage drawn(24, 24, QImage::Format_ARGB32);
    drawn.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(drawn.save(&buffer, "PNG"));
    tree.add({"app/Images/cursors/release.png", bytes.toStdString()});
    viewer.setPicture(plainPicture(1000, 800));
    EXPECT_EQ(pointer(), Qt::BitmapCursor);
    EXPECT_EQ(iDst()->cursor().pixmap().size(), QSize(24, 24));
    press(iDst(), {10, 10});
    EXPECT_EQ(pointer(), Qt::ClosedHandCursor);
}

TEST_F(PictureViewerInput, LeavesTheWheelToTheWindow)
{
    viewer.setPicture(plainPicture(1000, 800));
    QWidget* const targets[] = {&viewer, iDst(), hSB(), vSB()};
    for (QWidget* target : targets) {
        QWheelEvent event({5, 5}, target->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &event);
        EXPECT_FALSE(event.isAccepted()) << target->objectName().toStdString();
    }
    EXPECT_EQ(vSB()->value(), 258);
}

} // namespace
