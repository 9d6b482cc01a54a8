#include "core/window_registry.h"
#include "support/temp_tree.h"
#include "viewer/zoom_tool_window.h"
#include "viewer_main_window.h"
#include "widgets/title_strip.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

class ZoomTool : public testing::Test {
protected:
    ZoomTool()
    {
        core::windows().add(core::Window::fastZoom, [] { return new fastZoom; });
        tool = core::windows().load(core::Window::fastZoom);
    }
    ~ZoomTool() override
    {
        core::windows().unload(core::Window::fastZoom);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    [[nodiscard]] QSlider* slider() const { return tool->findChild<QSlider*>("scrZoom2"); }
    [[nodiscard]] QString label() const { return tool->findChild<QLabel*>("lblZoom2")->text(); }
    void activate(const QString& panelText)
    {
        main.panels.setPanel(core::Panel::Zoom, panelText);
        QEvent event(QEvent::WindowActivate);
        QCoreApplication::sendEvent(tool, &event);
    }

    support::TempTree tree;
    ViewerMainWindow main;
    QPointer<QWidget> tool;
};

TEST_F(ZoomTool, HasRoomForTheWholeKnob)
{
    tool->show();
    for (const int factor : {1, 15}) {
        slider()->setValue(factor);
        QStyleOptionSlider option;
        option.initFrom(slider());
        option.orientation = Qt::Horizontal;
        option.minimum = slider()->minimum();
        option.maximum = slider()->maximum();
        option.sliderPosition = factor;
        option.sliderValue = factor;
        option.tickPosition = slider()->tickPosition();
        option.tickInterval = slider()->tickInterval();
        const QRect knob = slider()->style()->subControlRect(QStyle::CC_Slider, &option,
                                                             QStyle::SC_SliderHandle, slider());
        EXPECT_TRUE(slider()->rect().contains(knob)) << factor << ": from row " << knob.top();
    }
}

TEST_F(ZoomTool, ReadsTheZoomWhenItBecomesActive)
{
    activate("      200%");
    EXPECT_EQ(slider()->value(), 2);
    EXPECT_EQ(label(), "200%");
    activate(viewer::zoomReadout(1));
    EXPECT_EQ(slider()->value(), 1);
    EXPECT_EQ(label(), "100%");
    activate(viewer::zoomReadout(15));
    EXPECT_EQ(slider()->value(), 15);
}

TEST_F(ZoomTool, BecomesActiveWhenItIsShownAndWhenTheFocusComesIntoIt)
{
    main.panels.setPanel(core::Panel::Zoom, "      200%");
    main.picture.show();
    tool->show();
    EXPECT_EQ(slider()->value(), 2);
    QApplication::setActiveWindow(&main.picture);
    main.picture.giveFocus();
    main.panels.setPanel(core::Panel::Zoom, "      500%");
    EXPECT_EQ(slider()->value(), 2);
    slider()->setFocus();
    EXPECT_EQ(slider()->value(), 5);
    // Within the tool the focus may move without that.
    main.panels.setPanel(core::Panel::Zoom, "      600%");
    tool->findChild<QAbstractButton*>("Max")->setFocus();
    EXPECT_EQ(slider()->value(), 5);
}

TEST_F(ZoomTool, HandsTheFocusToThePictureWhenItGoes)
{
    main.picture.show();
    tool->show();
    QApplication::setActiveWindow(&main.picture);
    slider()->setFocus();
    ASSERT_TRUE(slider()->hasFocus());
    tool->hide();
    EXPECT_EQ(QApplication::focusWidget(), &main.picture);
}

TEST_F(ZoomTool, StaysWithinReachOnASmallerMainWindow)
{
    main.picture.resize(900, 700);
    main.picture.show();
    tool->show();
    tool->move(600, 600);
    main.picture.resize(400, 300);
    EXPECT_LT(tool->x(), 400);
    EXPECT_LT(tool->y(), 300);
}

TEST_F(ZoomTool, KeepsTheWheelToItself)
{
    QWheelEvent turn({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    turn.ignore();
    QCoreApplication::sendEvent(tool, &turn);
    EXPECT_TRUE(turn.isAccepted());
}

TEST_F(ZoomTool, StandsAtOneBeforeAnyZoom)
{
    activate("");
    EXPECT_EQ(slider()->value(), 1);
    EXPECT_EQ(label(), "");
}

TEST_F(ZoomTool, DoesNotZoomByReading)
{
    QSignalSpy zooms(&main.picture, &cpvPicViewer::Zoom);
    activate("      400%");
    EXPECT_EQ(zooms.count(), 0);
}

TEST_F(ZoomTool, SetsTheZoom)
{
    slider()->setValue(3);
    EXPECT_EQ(main.picture.ZoomFactor(), 3);
    EXPECT_EQ(label(), "300%");
    slider()->setValue(99);
    EXPECT_EQ(main.picture.ZoomFactor(), 15);
    slider()->setValue(0);
    EXPECT_EQ(main.picture.ZoomFactor(), 1);
    EXPECT_EQ(label(), "100%");
}

TEST_F(ZoomTool, ClosesByItsBoxAndTellsTheMainWindow)
{
    tool->show();
    auto* box = tool->findChild<QAbstractButton*>("Max");
    ASSERT_NE(box, nullptr);
    box->click();
    EXPECT_EQ(main.log, QStringList("zoomToolClosed"));
    EXPECT_FALSE(core::windows().isLoaded(core::Window::fastZoom));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(tool, nullptr);
}

TEST_F(ZoomTool, HasATitleStripThatDragsIt)
{
    const auto* strip = tool->findChild<widgets::TitleStrip*>("Picture2");
    ASSERT_NE(strip, nullptr);
    EXPECT_TRUE(tool->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_FALSE(tool->isWindow());
}

TEST(ZoomReadout, PutsSixBlanksBeforeThePercentage)
{
    EXPECT_EQ(viewer::zoomReadout(2), "      200%");
    EXPECT_EQ(viewer::zoomReadout(15), "      1500%");
}

} // namespace
