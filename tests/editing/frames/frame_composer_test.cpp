#include "editing/frames/frame_composer.h"

#include "editing/frames/frame_fixture.h"
#include "editing/frames/frame_tiles.h"

#include <algorithm>
#include <vector>

using namespace frametest;
using frames::Composed;

namespace {

class FrameComposer : public testing::Test {
protected:
    void SetUp() override { addStyle(tree, "01 plain.jpg", "01"); }

    QImage draw(const QImage& picture, const frames::FrameMeasures& measures,
                Composed expected = Composed::Whole)
    {
        QImage image = picture;
        frames::FrameTiles tiles("01", measures.tile);
        EXPECT_EQ(frames::drawFrame(image, measures, tiles), expected);
        return image;
    }

    support::TempTree tree;
};

} // namespace

TEST_F(FrameComposer, PutsTheTilesOfAWholePictureInTheirPlaces)
{
    const QImage picture = test::numbered(200, 150);
    const QImage image = draw(picture, frames::finalMeasures(20));
    EXPECT_EQ(image.size(), picture.size());
    EXPECT_EQ(image.pixel(0, 0), colourOf(LeftTop));
    EXPECT_EQ(image.pixel(19, 19), colourOf(LeftTop));
    EXPECT_EQ(image.pixel(20, 19), colourOf(Top));
    EXPECT_EQ(image.pixel(19, 20), colourOf(Left));
    EXPECT_EQ(image.pixel(176, 0), colourOf(RightTop));
    EXPECT_EQ(image.pixel(195, 19), colourOf(RightTop));
    EXPECT_EQ(image.pixel(0, 126), colourOf(LeftBottom));
    EXPECT_EQ(image.pixel(19, 145), colourOf(LeftBottom));
    EXPECT_EQ(image.pixel(176, 126), colourOf(RightBottom));
    EXPECT_EQ(image.pixel(195, 145), colourOf(RightBottom));
    EXPECT_EQ(image.pixel(176, 125), colourOf(Right));
    EXPECT_EQ(image.pixel(175, 126), colourOf(Bottom));
}

// The edges run to the ends of the picture; between them it stays to be seen beyond the frame.
TEST_F(FrameComposer, LeavesAStripAtTheRightAndAtTheBottom)
{
    const QImage picture = test::numbered(200, 150);
    const QImage image = draw(picture, frames::finalMeasures(20));
    EXPECT_EQ(image.pixel(196, 20), picture.pixel(196, 20));
    EXPECT_EQ(image.pixel(199, 125), picture.pixel(199, 125));
    EXPECT_EQ(image.pixel(20, 146), picture.pixel(20, 146));
    EXPECT_EQ(image.pixel(175, 149), picture.pixel(175, 149));
    EXPECT_EQ(image.pixel(199, 149), picture.pixel(199, 149));
    EXPECT_EQ(image.pixel(199, 0), colourOf(Top));
    EXPECT_EQ(image.pixel(199, 126), colourOf(Bottom));
    EXPECT_EQ(image.pixel(0, 149), colourOf(Left));
    EXPECT_EQ(image.pixel(176, 149), colourOf(Right));
    test::expectPixels(image, framed(picture, 20, 4));
}

TEST_F(FrameComposer, FramesPicturesOfEverySizeAtEveryThickness)
{
    for (const QSize size : {QSize(1, 1), QSize(10, 10), QSize(39, 40), QSize(1, 300),
                             QSize(301, 7), QSize(640, 481)}) {
        const QImage picture = test::numbered(size.width(), size.height());
        for (const int thickness : {5, 6, 12, 20, 35}) {
            test::expectPixels(draw(picture, frames::finalMeasures(thickness)),
                               framed(picture, thickness, 4));
            const frames::FrameMeasures preview = frames::previewMeasures(thickness, 1);
            test::expectPixels(draw(picture, preview), framed(picture, preview.tile, 2));
        }
    }
}

TEST_F(FrameComposer, HalvesTheThicknessForThePreview)
{
    EXPECT_EQ(frames::previewMeasures(35, 1).tile, 18);
    EXPECT_EQ(frames::previewMeasures(33, 1).tile, 16);
    EXPECT_EQ(frames::previewMeasures(20, 1).tile, 10);
    const frames::FrameMeasures least = frames::previewMeasures(5, 1);
    EXPECT_EQ(least.tile, 2);
    EXPECT_EQ(least.margin, 2);
}

TEST_F(FrameComposer, KeepsTheThicknessOfThePreviewOnASharperScreen)
{
    const frames::FrameMeasures twice = frames::previewMeasures(35, 2);
    EXPECT_EQ(twice.tile, 36);
    EXPECT_EQ(twice.margin, 4);
}

TEST_F(FrameComposer, StretchesTilesToTheirPlaceAndCutsTheLast)
{
    QImage halves = test::filled(70, 70, 0xFFFF0000);
    QPainter(&halves).fillRect(0, 0, 70, 35, QColor::fromRgb(0xFF0000FF));
    save(halves, tree.path(tileName(Left, "01")));
    const QImage image = draw(test::filled(100, 97, 0xFFFFFFFF), {10, 4});
    for (const int blue : {10, 14, 20, 50, 94}) {
        EXPECT_EQ(image.pixel(5, blue), 0xFF0000FF) << blue;
    }
    for (const int red : {15, 19, 25, 55, 95, 96}) {
        EXPECT_EQ(image.pixel(5, red), 0xFFFF0000) << red;
    }
}

TEST_F(FrameComposer, EndsAtTheFirstTileThatIsMissing)
{
    const QImage picture = test::numbered(200, 150);
    tree.remove(tileName(Right, "01"));
    const QImage sides = draw(picture, frames::finalMeasures(20), Composed::Partly);
    EXPECT_EQ(sides.pixel(0, 19), colourOf(Left));
    EXPECT_EQ(sides.pixel(0, 20), picture.pixel(0, 20));
    EXPECT_EQ(sides.pixel(20, 0), picture.pixel(20, 0));

    addStyle(tree, "01 plain.jpg", "01");
    tree.remove(tileName(RightTop, "01"));
    const QImage corners = draw(picture, frames::finalMeasures(20), Composed::Partly);
    EXPECT_EQ(corners.pixel(0, 0), colourOf(LeftTop));
    EXPECT_EQ(corners.pixel(180, 0), colourOf(Top));
    EXPECT_EQ(corners.pixel(0, 130), colourOf(Bottom));
}

TEST_F(FrameComposer, LeavesAPictureThatIsNoneAlone)
{
    EXPECT_TRUE(draw({}, frames::finalMeasures(20), Composed::Partly).isNull());
}

TEST_F(FrameComposer, TellsHowFarItCameAndStopsWhenTold)
{
    QImage image = test::numbered(3000, 2000);
    frames::FrameTiles tiles("01", 5);
    std::vector<double> shares;
    EXPECT_EQ(frames::drawFrame(image, frames::finalMeasures(5), tiles,
                                [&](double share) {
                                    shares.push_back(share);
                                    return true;
                                }),
              Composed::Whole);
    EXPECT_GT(shares.size(), 10U);
    EXPECT_EQ(shares.front(), 0.0);
    EXPECT_EQ(shares.back(), 1.0);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));

    QImage stopped = test::numbered(3000, 2000);
    EXPECT_EQ(frames::drawFrame(stopped, frames::finalMeasures(5), tiles,
                                [](double share) { return share < 0.3; }),
              Composed::Stopped);
    EXPECT_EQ(stopped.pixel(0, 0), colourOf(Left));
}

TEST(PreviewSize, HasTheProportionsOfThePicture)
{
    const QSize room(400, 330);
    EXPECT_EQ(frames::previewSize({6000, 4000}, room), QSize(400, 266));
    EXPECT_EQ(frames::previewSize({100, 200}, room), QSize(165, 330));
    EXPECT_EQ(frames::previewSize({1, 1}, room), QSize(330, 330));
    EXPECT_EQ(frames::previewSize({30000, 1}, room), QSize(400, 1));
    EXPECT_EQ(frames::previewSize({1, 30000}, room), QSize(1, 330));
    EXPECT_TRUE(frames::previewSize({0, 0}, room).isEmpty());
}
