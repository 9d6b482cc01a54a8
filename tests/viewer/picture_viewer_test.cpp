#include "viewer_window.h"

#include <QSignalSpy>
#include <array>
#include <cstddef>
#include <new>

namespace {

using PictureViewer = ViewerWindow;

TEST_F(PictureViewer, ShowsNothingAtFirst)
{
    EXPECT_FALSE(viewer.PictureExists());
    EXPECT_EQ(viewer.PictureWidth(), 0);
    EXPECT_EQ(viewer.PictureHeight(), 0);
    EXPECT_EQ(viewer.ZoomFactor(), 1);
    EXPECT_TRUE(iDst()->isHidden());
    EXPECT_TRUE(hSB()->isHidden());
}

TEST_F(PictureViewer, LaysOutALargePictureCentredWithBothBars)
{
    viewer.setPicture(tellingPicture(1000, 800));
    EXPECT_TRUE(viewer.PictureExists());
    EXPECT_EQ(viewer.PictureWidth(), 1000);
    EXPECT_EQ(viewer.PictureHeight(), 800);
    EXPECT_EQ(iDst()->geometry(), QRect(0, 0, 385, 285));
    EXPECT_EQ(hSB()->geometry(), QRect(0, 285, 385, 15));
    EXPECT_EQ(vSB()->geometry(), QRect(385, 0, 15, 285));
    EXPECT_EQ(part("corner")->geometry(), QRect(385, 285, 15, 15));
    EXPECT_FALSE(part("corner")->isHidden());
    EXPECT_EQ(hSB()->maximum(), 615);
    EXPECT_EQ(vSB()->maximum(), 515);
    EXPECT_EQ(hSB()->value(), 308); // half of 615, to the even side
    EXPECT_EQ(vSB()->value(), 258);
    EXPECT_EQ(hSB()->pageStep(), 385);
    EXPECT_EQ(vSB()->pageStep(), 285);
    EXPECT_EQ(hSB()->singleStep(), 1);
    viewer.setZoomFactor(4);
    EXPECT_EQ(hSB()->singleStep(), 4);
}

TEST_F(PictureViewer, CentresASmallPictureWithoutBars)
{
    viewer.setPicture(plainPicture(100, 50));
    EXPECT_EQ(iDst()->geometry(), QRect(150, 125, 100, 50));
    EXPECT_TRUE(hSB()->isHidden());
    EXPECT_TRUE(vSB()->isHidden());
    EXPECT_TRUE(part("corner")->isHidden());
}

TEST_F(PictureViewer, HidesTheCornerOnClearAndKeepsItOtherwise)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setPicture(plainPicture(10, 10));
    EXPECT_TRUE(hSB()->isHidden());
    EXPECT_FALSE(part("corner")->isHidden());
    viewer.Clear();
    EXPECT_TRUE(part("corner")->isHidden());
}

TEST_F(PictureViewer, KeepsZoomWithinOneAndFifteen)
{
    viewer.setPicture(plainPicture(100, 50));
    viewer.setZoomFactor(0);
    EXPECT_EQ(viewer.ZoomFactor(), 1);
    viewer.setZoomFactor(99);
    EXPECT_EQ(viewer.ZoomFactor(), 15);
    QSignalSpy zooms(&viewer, &cpvPicViewer::Zoom);
    QSignalSpy layouts(&viewer, &cpvPicViewer::Resized);
    viewer.ZoomIn();
    EXPECT_EQ(viewer.ZoomFactor(), 15);
    EXPECT_EQ(zooms.count() + layouts.count(), 0);
    viewer.setZoomFactor(1);
    zooms.clear();
    layouts.clear();
    viewer.ZoomOut();
    EXPECT_EQ(viewer.ZoomFactor(), 1);
    EXPECT_EQ(zooms.count() + layouts.count(), 0);
}

TEST_F(PictureViewer, RaisesZoomOnceTheLayoutIsDone)
{
    viewer.setPicture(plainPicture(100, 50));
    QStringList order;
    QObject::connect(&viewer, &cpvPicViewer::Zoom, &viewer, [&] { order << "zoom"; });
    QObject::connect(&viewer, &cpvPicViewer::Resized, &viewer, [&] { order << "layout"; });
    viewer.ZoomIn();
    viewer.ZoomOut();
    viewer.ZoomReal();
    viewer.setZoomFactor(3);
    EXPECT_EQ(order, QStringList(
                         {"layout", "zoom", "layout", "zoom", "layout", "zoom", "layout", "zoom"}));
}

TEST_F(PictureViewer, ZoomRealNeedsAPicture)
{
    viewer.setZoomFactor(3);
    viewer.ZoomReal();
    EXPECT_EQ(viewer.ZoomFactor(), 3);
    viewer.setPicture(plainPicture(10, 10));
    viewer.ZoomReal();
    EXPECT_EQ(viewer.ZoomFactor(), 1);
}

TEST_F(PictureViewer, RefusesAZoomBeyond16BitsWithOneMessage)
{
    viewer.setPicture(plainPicture(3000, 10));
    QSignalSpy zooms(&viewer, &cpvPicViewer::Zoom);
    viewer.setZoomFactor(11);
    ASSERT_EQ(recorded.boxes.size(), 1U);
    EXPECT_EQ(recorded.boxes[0].title, "Zoom");
    EXPECT_EQ(recorded.boxes[0].text, "Unable to zoom 1000%");
    EXPECT_EQ(recorded.boxes[0].icon, platform::BoxIcon::Exclamation);
    EXPECT_EQ(viewer.ZoomFactor(), 1);
    EXPECT_GE(zooms.count(), 1);
    EXPECT_FALSE(iDst()->isHidden());
    EXPECT_EQ(iDst()->width(), 400);
}

TEST_F(PictureViewer, WaitsWithLayoutsWhileTheMessageStands)
{
    viewer.setPicture(plainPicture(3000, 10));
    recorded.whileOpen = [this] { viewer.resize(350, 250); };
    viewer.setZoomFactor(11);
    EXPECT_EQ(recorded.boxes.size(), 1U);
    EXPECT_EQ(iDst()->width(), 350);
}

TEST_F(PictureViewer, MayBeDestroyedWhileTheMessageStands)
{
    auto* doomed = new cpvPicViewer(&host);
    doomed->setPicture(plainPicture(3000, 10));
    recorded.whileOpen = [doomed] { delete doomed; };
    doomed->setZoomFactor(11);
    EXPECT_EQ(recorded.boxes.size(), 1U);
}

TEST_F(PictureViewer, SaysOnceThatAPictureIsTooLargeEvenAtFullSize)
{
    viewer.setPicture(plainPicture(40000, 1));
    ASSERT_EQ(recorded.boxes.size(), 1U);
    EXPECT_EQ(recorded.boxes[0].text, "Unable to zoom 0%");
    EXPECT_EQ(viewer.ZoomFactor(), 1);
    EXPECT_EQ(viewer.PictureWidth(), 0);
    EXPECT_EQ(viewer.PictureHeight(), 1);
    EXPECT_TRUE(viewer.PictureExists());
    viewer.resize(390, 300);
    EXPECT_EQ(recorded.boxes.size(), 1U);
}

TEST_F(PictureViewer, NamesBothZoomsForATooLargePictureSetAboveFullSize)
{
    viewer.setZoomFactor(3);
    viewer.setPicture(plainPicture(40000, 1));
    ASSERT_EQ(recorded.boxes.size(), 2U);
    EXPECT_EQ(recorded.boxes[0].text, "Unable to zoom 200%");
    EXPECT_EQ(recorded.boxes[1].text, "Unable to zoom 0%");
    EXPECT_EQ(viewer.ZoomFactor(), 1);
}

TEST_F(PictureViewer, LaysOutThePictureSetWhileTheMessageStands)
{
    int depth = 0;
    recorded.whileOpen = [&] {
        if (++depth == 1) {
            viewer.setPicture(plainPicture(100, 50, qRgb(10, 200, 30)));
        }
    };
    viewer.setPicture(plainPicture(40000, 1));
    EXPECT_EQ(recorded.boxes.size(), 1U);
    EXPECT_EQ(viewer.PictureWidth(), 100);
    EXPECT_TRUE(iDst()->isVisible());
    EXPECT_EQ(iDst()->geometry(), QRect(150, 125, 100, 50));
    EXPECT_EQ(viewer.grab().toImage().pixel(200, 150), qRgb(10, 200, 30));
}

TEST_F(PictureViewer, SaysThatAnotherPictureSetWhileTheMessageStandsIsTooLarge)
{
    int depth = 0;
    recorded.whileOpen = [&] {
        if (++depth == 1) {
            viewer.setPicture(plainPicture(50000, 1));
        }
    };
    viewer.setPicture(plainPicture(40000, 1));
    EXPECT_EQ(recorded.boxes.size(), 2U);
    EXPECT_TRUE(iDst()->isHidden());
}

TEST_F(PictureViewer, MayBeDestroyedWhileTheMessageOfANewPictureStands)
{
    // Its memory is filled afterwards, so that whoever still looks there finds nothing usable.
    alignas(cpvPicViewer) std::array<std::byte, sizeof(cpvPicViewer)> memory;
    auto* doomed = new (memory.data()) cpvPicViewer(&host);
    recorded.whileOpen = [&] {
        doomed->~cpvPicViewer();
        memory.fill(std::byte{0x5A});
    };
    doomed->setPicture(plainPicture(40000, 1));
    EXPECT_EQ(recorded.boxes.size(), 1U);
    for (const std::byte value : memory) {
        ASSERT_EQ(value, std::byte{0x5A});
    }
}

TEST_F(PictureViewer, EmptiesForNothingButReportsAPicture)
{
    viewer.setPicture({});
    EXPECT_TRUE(viewer.PictureExists());
    EXPECT_EQ(viewer.PictureWidth(), 0);
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setPicture({});
    EXPECT_TRUE(viewer.PictureExists());
    EXPECT_EQ(viewer.PictureWidth(), 0);
    EXPECT_TRUE(viewer.Picture().isNothing());
    EXPECT_TRUE(iDst()->isHidden());
    EXPECT_TRUE(hSB()->isHidden());
    EXPECT_EQ(hSB()->maximum(), 0);
}

TEST_F(PictureViewer, BearsEveryOperationWithoutAPicture)
{
    viewer.setPicture({});
    viewer.setZoomFactor(4);
    viewer.ZoomIn();
    viewer.ZoomOut();
    viewer.Go(4);
    viewer.Scroll(1, 5);
    viewer.ScrollLoop(0, 5);
    viewer.CenterXY(10, 10);
    viewer.Refresh();
    viewer.setBestFitMode(true);
    viewer.PanViewShow(0, 0, 0, 0, true);
    viewer.PanViewRefresh();
    viewer.resize(200, 200);
    EXPECT_EQ(viewer.CenterX(), 0);
    EXPECT_EQ(viewer.CurrentWidth(), 0);
    EXPECT_EQ(viewer.CurrentLeft(), 0);
    EXPECT_FALSE(viewer.grab().isNull());
}

TEST_F(PictureViewer, ClearShowsNothingEvenAfterALaterLayout)
{
    const platform::Picture picture = plainPicture(1000, 800);
    viewer.setPicture(picture);
    viewer.Clear();
    EXPECT_EQ(viewer.PictureWidth(), 0);
    EXPECT_TRUE(iDst()->isHidden());
    viewer.setZoomFactor(2);
    viewer.resize(300, 300);
    EXPECT_TRUE(iDst()->isHidden());
    EXPECT_TRUE(hSB()->isHidden());
    EXPECT_EQ(viewer.Picture().width(), 1000);
}

TEST_F(PictureViewer, KeepsThePictureShownWhenAnotherTypeIsHandedIn)
{
    viewer.setPicture(plainPicture(100, 50));
    const QImage image = plainPicture(20, 20).image();
    using platform::PictureType;
    for (const PictureType type :
         {PictureType::Metafile, PictureType::Icon, PictureType::EnhancedMetafile}) {
        viewer.setPicture(platform::Picture(image, type));
        EXPECT_EQ(viewer.PictureWidth(), 100);
        EXPECT_EQ(viewer.Picture().width(), 100);
        EXPECT_EQ(iDst()->geometry(), QRect(150, 125, 100, 50));
    }
}

TEST_F(PictureViewer, HoldsNoSecondCopyOfThePixels)
{
    const platform::Picture picture = plainPicture(1000, 800);
    viewer.setPicture(picture);
    viewer.grab();
    viewer.setZoomFactor(3);
    viewer.grab();
    EXPECT_EQ(viewer.Picture().image().constBits(), picture.image().constBits());
}

TEST_F(PictureViewer, GoesToTheNinePlaces)
{
    struct Row {
        int position;
        int horizontal;
        int vertical;
    };
    constexpr Row kRows[] = {{0, 308, 0}, {1, 308, 515}, {2, 0, 258}, {3, 615, 258}, {4, 308, 258},
                             {5, 0, 0},   {6, 615, 0},   {7, 0, 515}, {8, 615, 515}};
    viewer.setPicture(plainPicture(1000, 800));
    for (const Row& row : kRows) {
        viewer.Go(row.position);
        EXPECT_EQ(hSB()->value(), row.horizontal) << row.position;
        EXPECT_EQ(vSB()->value(), row.vertical) << row.position;
    }
    viewer.Go(9);
    viewer.Go(-1);
    EXPECT_EQ(hSB()->value(), 615);
}

TEST_F(PictureViewer, ScrollsByStepsAndStopsAtTheEnds)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.Go(5);
    viewer.Scroll(1, 10);
    EXPECT_EQ(vSB()->value(), 10);
    viewer.Scroll(3, 0);
    EXPECT_EQ(hSB()->value(), 1);
    viewer.Scroll(0, 10);
    EXPECT_EQ(vSB()->value(), 0);
    viewer.Scroll(2, 30);
    EXPECT_EQ(hSB()->value(), 0);
    viewer.Scroll(3, 9999);
    viewer.Scroll(1, 9999);
    EXPECT_EQ(hSB()->value(), 615);
    EXPECT_EQ(vSB()->value(), 515);
    viewer.Scroll(4, 10);
    EXPECT_EQ(hSB()->value(), 615);
}

TEST_F(PictureViewer, ScrollsByTheZoom)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setZoomFactor(3);
    viewer.Go(5);
    viewer.Scroll(3, 10);
    EXPECT_EQ(hSB()->value(), 30);
    viewer.Scroll(3, 0);
    EXPECT_EQ(hSB()->value(), 31);
}

TEST_F(PictureViewer, ScrollLoopWrapsBothWays)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.Go(5);
    viewer.ScrollLoop(0, 10);
    EXPECT_EQ(vSB()->value(), 515);
    viewer.ScrollLoop(1, 10);
    EXPECT_EQ(vSB()->value(), 0);
    viewer.ScrollLoop(2, 10);
    EXPECT_EQ(hSB()->value(), 615);
    viewer.ScrollLoop(2, 15);
    EXPECT_EQ(hSB()->value(), 600);
    viewer.ScrollLoop(3, 16);
    EXPECT_EQ(hSB()->value(), 0);
}

TEST_F(PictureViewer, CentresAPixelWithinTheBars)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setZoomFactor(2);
    viewer.CenterXY(400, 300);
    EXPECT_EQ(hSB()->value(), 600);
    EXPECT_EQ(vSB()->value(), 450);
    EXPECT_EQ(viewer.CenterX(), 400);
    EXPECT_EQ(viewer.CenterY(), 300);
    viewer.CenterXY(0, 0);
    EXPECT_EQ(hSB()->value(), 0);
    viewer.CenterXY(1000, 800);
    EXPECT_EQ(hSB()->value(), hSB()->maximum());
    EXPECT_EQ(vSB()->value(), vSB()->maximum());
}

TEST_F(PictureViewer, TellsTheVisiblePart)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setZoomFactor(3);
    hSB()->setValue(100);
    vSB()->setValue(50);
    EXPECT_EQ(viewer.CurrentLeft(), 33);
    EXPECT_EQ(viewer.CurrentTop(), 16);
    EXPECT_EQ(viewer.CurrentWidth(), 128);
    EXPECT_EQ(viewer.CurrentHeight(), 95);
}

TEST_F(PictureViewer, KeepsTheSpotInProportionAndCentresAtFullSize)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setZoomFactor(2);
    hSB()->setValue(hSB()->maximum() / 4);
    const double share = double(hSB()->value()) / hSB()->maximum();
    viewer.ZoomIn();
    EXPECT_NEAR(double(hSB()->value()) / hSB()->maximum(), share, 0.001);
    viewer.ZoomOut();
    EXPECT_NEAR(double(hSB()->value()) / hSB()->maximum(), share, 0.001);
    viewer.ZoomReal();
    EXPECT_EQ(hSB()->value(), 308);
}

TEST_F(PictureViewer, CentresAgainOnAMereResizeAtFullSize)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.Go(5);
    viewer.resize(300, 300);
    EXPECT_EQ(hSB()->maximum(), 715);
    EXPECT_EQ(hSB()->value(), 358);
}

TEST_F(PictureViewer, OpensThePictureAfterAClearCentred)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setZoomFactor(2);
    viewer.setPicture({});
    viewer.setPicture(plainPicture(1000, 800));
    EXPECT_EQ(hSB()->maximum(), 1615);
    EXPECT_EQ(hSB()->value(), 808);
}

TEST_F(PictureViewer, FitsThePictureAndIgnoresTheZoom)
{
    viewer.setPicture(plainPicture(100, 100));
    viewer.setBestFitMode(true);
    EXPECT_EQ(iDst()->geometry(), QRect(50, 0, 300, 300));
    viewer.setZoomFactor(5);
    EXPECT_EQ(iDst()->geometry(), QRect(50, 0, 300, 300));
    EXPECT_TRUE(hSB()->isHidden());
    EXPECT_EQ(hSB()->maximum(), 0);
    viewer.setBestFitMode(false);
    EXPECT_EQ(hSB()->maximum(), 115);
}

TEST_F(PictureViewer, ScrollsWithoutShowingBarsInModeOne)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setScrollBars(1);
    EXPECT_TRUE(hSB()->isHidden());
    EXPECT_TRUE(vSB()->isHidden());
    EXPECT_TRUE(part("corner")->isHidden());
    EXPECT_EQ(iDst()->size(), QSize(400, 300));
    EXPECT_EQ(hSB()->maximum(), 600);
    viewer.Go(5);
    viewer.Scroll(3, 40);
    EXPECT_EQ(viewer.CurrentLeft(), 40);
    viewer.setScrollBars(0);
    EXPECT_FALSE(hSB()->isHidden());
}

TEST_F(PictureViewer, StoresBarsOfThirteenPixelsAtLeast)
{
    viewer.setBarsWidth(13);
    EXPECT_EQ(viewer.BarsWidth(), 13);
    viewer.setBarsWidth(5);
    EXPECT_EQ(viewer.BarsWidth(), 13);
    viewer.setBarsWidth(20);
    EXPECT_EQ(viewer.BarsWidth(), 20);
    viewer.setPicture(plainPicture(1000, 800));
    EXPECT_EQ(iDst()->size(), QSize(380, 280));
}

TEST_F(PictureViewer, GrowsToTwoBarsWhenItIsTooSmall)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.resize(20, 200);
    EXPECT_EQ(viewer.size(), QSize(30, 200));
    viewer.resize(10, 10);
    EXPECT_EQ(viewer.size(), QSize(30, 30));
}

TEST_F(PictureViewer, StaysSmallWithoutAPicture)
{
    viewer.resize(10, 10);
    EXPECT_EQ(viewer.size(), QSize(10, 10));
}

TEST_F(PictureViewer, CountsItsEvents)
{
    QSignalSpy scrolled(&viewer, &cpvPicViewer::Scrolled);
    QSignalSpy resized(&viewer, &cpvPicViewer::Resized);
    QSignalSpy zoomed(&viewer, &cpvPicViewer::Zoom);
    const auto counts = [&] {
        const QList<qsizetype> taken = {scrolled.count(), resized.count(), zoomed.count()};
        scrolled.clear();
        resized.clear();
        zoomed.clear();
        return taken;
    };
    viewer.setPicture(plainPicture(1000, 800));
    EXPECT_EQ(counts(), (QList<qsizetype>{2, 1, 0}));
    viewer.Scroll(1, 5);
    EXPECT_EQ(counts(), (QList<qsizetype>{1, 0, 0}));
    viewer.Go(5);
    EXPECT_EQ(counts(), (QList<qsizetype>{2, 0, 0}));
    viewer.Go(5);
    EXPECT_EQ(counts(), (QList<qsizetype>{0, 0, 0}));
    viewer.CenterXY(500, 400);
    EXPECT_EQ(counts(), (QList<qsizetype>{2, 0, 0}));
    viewer.ZoomIn();
    EXPECT_EQ(counts(), (QList<qsizetype>{2, 1, 1}));
    viewer.resize(390, 300);
    EXPECT_EQ(counts()[1], 1);
    viewer.Refresh();
    EXPECT_EQ(counts(), (QList<qsizetype>{0, 0, 0}));
}

TEST_F(PictureViewer, FollowsTheResizeOfItsHost)
{
    viewer.setPicture(plainPicture(1000, 800));
    QSignalSpy resized(&viewer, &cpvPicViewer::Resized);
    host.resize(600, 450);
    EXPECT_EQ(resized.count(), 1);
}

TEST_F(PictureViewer, LaysOutInsideItsBorder)
{
    viewer.setPicture(plainPicture(1000, 800));
    viewer.setBorderStyle(1);
    EXPECT_EQ(iDst()->geometry(), QRect(2, 2, 381, 281));
    viewer.setAppearance(0);
    EXPECT_EQ(iDst()->geometry(), QRect(1, 1, 383, 283));
}

TEST_F(PictureViewer, TellsAndTakesItsColourByItsRole)
{
    core::Viewer& role = viewer;
    role.setBackColor(0x00102030);
    EXPECT_EQ(viewer.BackColor(), 0x00102030U);
    EXPECT_EQ(role.BackColor(), 0x00102030U);
}

TEST_F(PictureViewer, LeavesDefaultsOutOfItsStoredProperties)
{
    EXPECT_TRUE(viewer.saveProperties().isEmpty());
    viewer.setBackColor(0x00112233);
    viewer.setBarsWidth(20);
    viewer.setBestFitMode(true);
    viewer.setBorderStyle(1);
    viewer.setAppearance(0);
    viewer.setEnabled(false);
    viewer.setMouseScrolling(false);
    viewer.setScrollBars(1);
    const QVariantMap stored = viewer.saveProperties();
    EXPECT_EQ(stored, (QVariantMap{{"Appearance", 0},
                                   {"BackColor", 0x00112233U},
                                   {"BarsWidth", 20},
                                   {"BestFitMode", true},
                                   {"BorderStyle", 1},
                                   {"Enabled", false},
                                   {"MouseScrolling", false},
                                   {"ScrollBars", 1}}));
    cpvPicViewer other;
    other.loadProperties(stored);
    EXPECT_EQ(other.saveProperties(), stored);
    other.loadProperties({});
    EXPECT_TRUE(other.saveProperties().isEmpty());
    EXPECT_EQ(other.BackColor(), 0x8000000FU);
}

} // namespace
