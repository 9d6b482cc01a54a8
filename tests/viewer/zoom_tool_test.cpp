#include "core/window_registry.h"
#include "support/temp_tree.h"
#include "viewer/display_pipeline.h"
#include "viewer/zoom_tool_window.h"
#include "viewer_main_window.h"
#include "widgets/title_strip.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QSlider>
#include <gtest/gtest.h>

namespace {

class ZoomTool : public testing::Test {
protected:
    ZoomTool()
    {
        core::windows().add("fastZoom", [] { return new fastZoom; });
        tool = core::windows().load("fastZoom");
    }
    ~ZoomTool() override
    {
        core::windows().unload("fastZoom");
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
    EXPECT_FALSE(core::windows().isLoaded("fastZoom"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(tool, nullptr);
}

TEST_F(ZoomTool, HasATitleStripThatDragsIt)
{
    const auto* strip = tool->findChild<widgets::TitleStrip*>("Picture2");
    ASSERT_NE(strip, nullptr);
    EXPECT_TRUE(tool->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST(ZoomReadout, PutsSixBlanksBeforeThePercentage)
{
    EXPECT_EQ(viewer::zoomReadout(2), "      200%");
    EXPECT_EQ(viewer::zoomReadout(15), "      1500%");
}

} // namespace
