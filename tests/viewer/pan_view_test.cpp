#include "viewer/pan_view_window.h"
#include "viewer_window.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <algorithm>
#include <vector>

namespace {

class PanView : public ViewerWindow {
protected:
    // A client of 300 x 300 pixels, shown at (20, 30) of the host.
    void showPanView() { viewer.PanViewShow(20 * 15, 30 * 15, 302 * 15, 302 * 15, true); }

    [[nodiscard]] frmPanView* view() const { return host.findChild<frmPanView*>("frmPanView"); }
    [[nodiscard]] QRect clip() const
    {
        const QWidget* shape = view()->findChild<QWidget*>("ClipRct");
        return shape->isHidden() ? QRect()
                                 : shape->geometry().translated(-view()->clientArea().topLeft());
    }
    // From client pixels to those of the window.
    [[nodiscard]] QPoint at(int x, int y) const
    {
        return view()->clientArea().topLeft() + QPoint(x, y);
    }
    [[nodiscard]] QImage shown() const
    {
        return view()->grab().toImage().copy(view()->clientArea());
    }
};

TEST_F(PanView, StandsWhereItIsToldWithoutTakingTheFocus)
{
    viewer.giveFocus();
    EXPECT_FALSE(viewer.PanViewVisible());
    showPanView();
    EXPECT_TRUE(viewer.PanViewVisible());
    ASSERT_NE(view(), nullptr);
    EXPECT_EQ(view()->geometry(), QRect(20, 30, 302, 302));
    EXPECT_TRUE(view()->isVisible());
    EXPECT_EQ(host.focusWidget(), &viewer);
}

TEST_F(PanView, LeavesTheNumbersThatAreZero)
{
    showPanView();
    viewer.PanViewShow(0, 40 * 15, 0, 100 * 15, false);
    EXPECT_EQ(view()->geometry(), QRect(20, 40, 302, 100));
    EXPECT_EQ(host.findChildren<frmPanView*>().size(), 1);
}

TEST_F(PanView, LiesOnTopOnlyWhenAsked)
{
    showPanView();
    QWidget cover(&host);
    cover.show();
    const auto isAbove = [&] {
        const QObjectList children = host.children();
        return children.indexOf(view()) > children.indexOf(&cover);
    };
    viewer.PanViewShow(0, 0, 0, 0, false);
    EXPECT_FALSE(isAbove());
    viewer.PanViewShow(0, 0, 0, 0, true);
    EXPECT_TRUE(isAbove());
}

TEST_F(PanView, DrawsASmallPictureAtItsOwnSize)
{
    showPanView();
    viewer.setPicture(plainPicture(200, 100));
    const QImage image = shown();
    const QRgb colour = qRgb(40, 80, 120);
    const QRect place(50, 100, 200, 100);
    EXPECT_NE(image.pixel(49, 150), colour);
    EXPECT_NE(image.pixel(250, 150), colour);
    EXPECT_NE(image.pixel(150, 99), colour);
    EXPECT_NE(image.pixel(150, 200), colour);
    // The rectangle marks all of it, so look within.
    EXPECT_EQ(image.pixel(place.center()), colour);
    EXPECT_EQ(clip(), place);
}

TEST_F(PanView, DrawsALargePictureFitted)
{
    viewer.setPicture(plainPicture(600, 300));
    showPanView();
    const QImage image = shown();
    EXPECT_EQ(image.pixel(299, 160), qRgb(40, 80, 120));
    EXPECT_EQ(image.pixel(150, 223), qRgb(40, 80, 120));
    EXPECT_NE(image.pixel(150, 74), qRgb(40, 80, 120));
    EXPECT_NE(image.pixel(150, 225), qRgb(40, 80, 120));
}

TEST_F(PanView, KeepsItsMiniatureUntilThePictureChanges)
{
    viewer.setPicture(plainPicture(600, 300));
    showPanView();
    viewer.setPicture(plainPicture(600, 300, qRgb(1, 2, 3)));
    EXPECT_EQ(shown().pixel(290, 160), qRgb(1, 2, 3));
    viewer.setPicture({});
    EXPECT_NE(shown().pixel(290, 160), qRgb(1, 2, 3));
}

TEST_F(PanView, KeepsItsMiniatureDuringADrag)
{
    constexpr int kSide = 600;
    const QRgb before = qRgb(40, 80, 120);
    const QRgb after = qRgb(200, 10, 60);
    std::vector<QRgb> pixels(std::size_t(kSide) * kSide, before);
    const QImage picture(reinterpret_cast<const uchar*>(pixels.data()), kSide, kSide,
                         QImage::Format_RGB32);
    viewer.setPicture(platform::Picture(picture));
    showPanView();
    viewer.Go(5);
    ASSERT_EQ(shown().pixel(290, 290), before);
    // Behind the viewer's back the pixels change: what it paints is new, what it kept is old.
    std::fill(pixels.begin(), pixels.end(), after);
    press(view(), at(20, 20));
    for (int step = 1; step < 10; ++step) {
        drag(view(), at(20 + step, 20 + step));
        EXPECT_EQ(hSB()->value(), 2 * step);
        EXPECT_EQ(iDst()->grab().toImage().pixel(100, 100), after);
        EXPECT_EQ(shown().pixel(290, 290), before);
    }
    release(view(), at(30, 30));
    EXPECT_EQ(shown().pixel(290, 290), before);
}

TEST_F(PanView, MarksTheVisiblePart)
{
    viewer.setPicture(plainPicture(600, 600));
    showPanView();
    viewer.Go(5);
    // Half a miniature pixel for one of the picture; 385 x 285 of it are visible.
    EXPECT_EQ(clip(), QRect(0, 0, 192, 142));
    hSB()->setValue(100);
    vSB()->setValue(60);
    EXPECT_EQ(clip().topLeft(), QPoint(50, 30));
    viewer.setZoomFactor(3);
    viewer.Go(5);
    EXPECT_EQ(clip(), QRect(0, 0, 64, 48));
    hSB()->setValue(600);
    EXPECT_EQ(clip().left(), 100);
}

TEST_F(PanView, HidesTheRectangleInBestFitAndWithoutAPicture)
{
    viewer.setPicture(plainPicture(600, 600));
    showPanView();
    EXPECT_FALSE(clip().isEmpty());
    viewer.setBestFitMode(true);
    EXPECT_TRUE(clip().isEmpty());
    viewer.setBestFitMode(false);
    EXPECT_FALSE(clip().isEmpty());
    viewer.Clear();
    EXPECT_TRUE(clip().isEmpty());
}

TEST_F(PanView, DragsTheViewer)
{
    viewer.setPicture(plainPicture(600, 600));
    showPanView();
    viewer.Go(5);
    QSignalSpy scrolled(&viewer, &cpvPicViewer::Scrolled);
    press(view(), at(20, 20));
    drag(view(), at(30, 25));
    EXPECT_EQ(hSB()->value(), 20);
    EXPECT_EQ(vSB()->value(), 10);
    EXPECT_EQ(clip().topLeft(), QPoint(10, 5));
    EXPECT_EQ(scrolled.count(), 2);
    drag(view(), at(29, 25));
    EXPECT_EQ(hSB()->value(), 18);
    release(view(), at(29, 25));
    drag(view(), at(80, 80));
    EXPECT_EQ(hSB()->value(), 18);
}

TEST_F(PanView, DragsByTheZoom)
{
    viewer.setPicture(plainPicture(600, 600));
    viewer.setZoomFactor(3);
    showPanView();
    viewer.Go(5);
    press(view(), at(20, 20));
    drag(view(), at(30, 20));
    EXPECT_EQ(hSB()->value(), 60);
}

TEST_F(PanView, KeepsTheRectangleInsideTheMiniature)
{
    viewer.setPicture(plainPicture(600, 600));
    showPanView();
    viewer.Go(4);
    press(view(), at(150, 150));
    drag(view(), at(5000, 5000));
    EXPECT_EQ(hSB()->value(), hSB()->maximum());
    EXPECT_EQ(vSB()->value(), vSB()->maximum());
    EXPECT_EQ(clip().bottomRight(), QPoint(299, 299));
    drag(view(), at(-5000, -5000));
    EXPECT_EQ(hSB()->value(), 0);
    EXPECT_EQ(vSB()->value(), 0);
    EXPECT_EQ(clip().topLeft(), QPoint(0, 0));
    // The pointer left the range by far; coming back, the rectangle follows at once.
    drag(view(), at(150, 150));
    release(view(), at(150, 150));
    EXPECT_NEAR(hSB()->value(), hSB()->maximum() / 2, 2);
}

TEST_F(PanView, StartsNoDragOutsideTheRectangleWithAnotherButtonOrInBestFit)
{
    viewer.setPicture(plainPicture(600, 600));
    showPanView();
    viewer.Go(5);
    QSignalSpy down(&viewer, &cpvPicViewer::PanViewMouseDown);
    press(view(), at(290, 290));
    drag(view(), at(250, 250));
    release(view(), at(250, 250));
    sendMouse(view(), QEvent::MouseButtonPress, at(20, 20), Qt::RightButton, Qt::RightButton);
    drag(view(), at(40, 40));
    EXPECT_EQ(hSB()->value(), 0);
    viewer.setBestFitMode(true);
    press(view(), at(20, 20));
    drag(view(), at(40, 40));
    viewer.setBestFitMode(false);
    EXPECT_EQ(hSB()->maximum(), 215);
    EXPECT_EQ(hSB()->value(), 108);
    EXPECT_EQ(down.count(), 3);
}

TEST_F(PanView, EndsADragWhenItHidesOrThePictureGoes)
{
    viewer.setPicture(plainPicture(600, 600));
    showPanView();
    viewer.Go(5);
    press(view(), at(20, 20));
    viewer.PanViewHide();
    drag(view(), at(40, 40));
    EXPECT_EQ(hSB()->value(), 0);
    showPanView();
    press(view(), at(20, 20));
    viewer.setPicture({});
    drag(view(), at(40, 40));
    EXPECT_EQ(hSB()->value(), 0);
}

TEST_F(PanView, ShowsItsPointerOverTheRectangle)
{
    viewer.setPicture(plainPicture(600, 600));
    showPanView();
    viewer.Go(5);
    const auto hover = [this](QPoint place) {
        sendMouse(view(), QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton);
        return view()->cursor().shape();
    };
    EXPECT_EQ(hover(at(290, 290)), Qt::ArrowCursor);
    EXPECT_EQ(hover(at(20, 20)), Qt::OpenHandCursor);
    press(view(), at(20, 20));
    drag(view(), at(900, 900));
    EXPECT_EQ(view()->cursor().shape(), Qt::ClosedHandCursor);
    release(view(), at(900, 900));
    viewer.setBestFitMode(true);
    EXPECT_EQ(hover(at(20, 20)), Qt::ArrowCursor);
}

TEST_F(PanView, ForwardsItsEvents)
{
    showPanView();
    QStringList order;
    QObject::connect(&viewer, &cpvPicViewer::PanViewMouseDown, &viewer,
                     [&](int button, int shift, int x, int y) {
                         order << QString("down %1 %2 %3 %4").arg(button).arg(shift).arg(x).arg(y);
                     });
    QObject::connect(&viewer, &cpvPicViewer::PanViewMouseUp, &viewer, [&] { order << "up"; });
    QObject::connect(&viewer, &cpvPicViewer::PanViewClick, &viewer, [&] { order << "click"; });
    QObject::connect(&viewer, &cpvPicViewer::PanViewDblClick, &viewer, [&] { order << "double"; });
    QObject::connect(&viewer, &cpvPicViewer::PanViewKeyDown, &viewer, [&](int key, int shift) {
        order << QString("key %1 %2").arg(key).arg(shift);
    });
    QObject::connect(&viewer, &cpvPicViewer::PanViewKeyUp, &viewer, [&] { order << "key up"; });
    press(view(), at(3, 4));
    release(view(), at(3, 4));
    sendMouse(view(), QEvent::MouseButtonDblClick, at(3, 4), Qt::LeftButton, Qt::LeftButton);
    QKeyEvent keyDown(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier);
    QCoreApplication::sendEvent(view(), &keyDown);
    QKeyEvent keyUp(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    QCoreApplication::sendEvent(view(), &keyUp);
    EXPECT_EQ(order, QStringList({"down 1 0 3 4", "up", "click", "double", "key 65 1", "key up"}));
}

TEST_F(PanView, StaysLoadedWhenHiddenAndGoesWhenUnloaded)
{
    showPanView();
    viewer.PanViewHide();
    EXPECT_TRUE(viewer.PanViewVisible());
    EXPECT_TRUE(view()->isHidden());
    viewer.PanViewUnload();
    EXPECT_FALSE(viewer.PanViewVisible());
    viewer.PanViewHide();
    viewer.PanViewRefresh();
    EXPECT_FALSE(viewer.PanViewVisible());
}

TEST_F(PanView, HandsTheFocusBackWhenItHides)
{
    showPanView();
    view()->setFocus();
    ASSERT_EQ(host.focusWidget(), view());
    viewer.PanViewHide();
    EXPECT_EQ(host.focusWidget(), &viewer);
}

TEST_F(PanView, ShowsAgainWhenTheHostResizesAndHidesWhenItIsMinimised)
{
    showPanView();
    viewer.PanViewHide();
    host.resize(510, 410);
    EXPECT_FALSE(view()->isHidden());
    host.setWindowState(Qt::WindowMinimized);
    QCoreApplication::processEvents();
    EXPECT_TRUE(view()->isHidden());
    host.setWindowState(Qt::WindowNoState);
    QCoreApplication::processEvents();
    EXPECT_FALSE(view()->isHidden());
}

TEST_F(PanView, FollowsTheHostBeforeTheHostItselfReacts)
{
    // A host that unloads the view as it resizes ends with it gone.
    class Unloader : public QWidget {
    public:
        cpvPicViewer* child = nullptr;

    protected:
        void resizeEvent(QResizeEvent* /*event*/) override
        {
            if (child != nullptr) {
                child->PanViewUnload();
            }
        }
    };
    Unloader window;
    cpvPicViewer inside(&window);
    window.show();
    inside.setHost(&window);
    inside.PanViewShow(15, 15, 1500, 1500, true);
    window.child = &inside;
    window.resize(333, 222);
    EXPECT_FALSE(inside.PanViewVisible());
}

TEST_F(PanView, GoesWithItsViewer)
{
    auto* doomed = new cpvPicViewer(&host);
    doomed->setHost(&host);
    doomed->PanViewShow(15, 15, 1500, 1500, true);
    const QPointer<frmPanView> shownView = view();
    ASSERT_NE(shownView, nullptr);
    delete doomed;
    EXPECT_TRUE(shownView == nullptr || shownView->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(shownView, nullptr);
}

} // namespace
