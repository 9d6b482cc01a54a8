#include "platform/pictures/picture_box.h"

#include "platform/pictures/test_images.h"

#include <gtest/gtest.h>

using platform::Picture;
using platform::PictureBox;
using test::expectPixels;
using test::filled;
using test::imageOf;
using test::numbered;

namespace {

constexpr base::Colour kRed = base::rgb(255, 0, 0);
constexpr base::Colour kBlue = base::rgb(0, 0, 255);

QImage halves(int width, int height)
{
    return imageOf(width, height, [width](int x, int) {
        return x < width / 2 ? qRgb(255, 0, 0) : qRgb(0, 0, 255);
    });
}

// The left half of the box's drawing, mirrored onto its right half.
void mirrorLeftHalf(PictureBox& box)
{
    box.setPicture(box.drawnImage());
    const double width = box.width();
    const double height = box.height();
    box.paintPicture(box.picture(), {width, 0, -width / 2, height}, {0, 0, width / 2, height});
    box.setPicture(box.drawnImage());
}

} // namespace

TEST(PictureBox, IsEmptyByDefault)
{
    PictureBox box;
    EXPECT_EQ(box.width(), 0);
    EXPECT_TRUE(box.drawnImage().isNothing());
    box.cls();
    box.fillBox(0, 0, 5, 5, kRed);
    box.line(0, 0, 5, 5, kRed);
    box.paintPicture(Picture(numbered(2, 2)), 0, 0, 2, 2);
    EXPECT_EQ(box.width(), 0);
}

TEST(PictureBox, BeginsInItsBackground)
{
    PictureBox box(3, 2);
    expectPixels(box.surface(), filled(3, 2, qRgb(255, 255, 255)));
    box.setBackColor(kRed);
    expectPixels(box.surface(), filled(3, 2, qRgb(255, 0, 0)));
    box.setBackColor(base::systemColour(15));
    EXPECT_EQ(box.point(0, 0), base::translated(base::systemColour(15)));
}

TEST(PictureBox, KeepsTheDrawingThatFitsANewSize)
{
    PictureBox box(4, 4);
    box.setBackColor(kBlue);
    box.fillBox(0, 0, 3, 3, kRed);
    EXPECT_TRUE(box.resize(6, 2));
    expectPixels(box.surface(), imageOf(6, 2, [](int x, int) {
                     return x < 4 ? qRgb(255, 0, 0) : qRgb(0, 0, 255);
                 }));
}

TEST(PictureBox, RefusesImpossibleSizes)
{
    PictureBox box(4, 3);
    EXPECT_FALSE(box.resize(0, 3));
    EXPECT_FALSE(box.resize(3, -1));
    EXPECT_FALSE(box.resize(65535, 65535));
    EXPECT_EQ(box.width(), 4);
    EXPECT_EQ(box.height(), 3);
}

TEST(PictureBox, TakesTheSizeOfItsPicture)
{
    PictureBox box(2, 2);
    const QImage image = numbered(7, 5);
    box.setPicture(Picture(image));
    expectPixels(box.drawnImage().image(), image);
    EXPECT_EQ(box.picture().image(), image);
}

TEST(PictureBox, DrawsWithoutTouchingItsPicture)
{
    PictureBox box;
    const QImage image = numbered(7, 5);
    box.setPicture(Picture(image));
    box.fillBox(0, 0, 6, 4, kRed);
    expectPixels(box.surface(), filled(7, 5, qRgb(255, 0, 0)));
    expectPixels(box.picture().image(), image);
    box.cls();
    expectPixels(box.surface(), image);
}

TEST(PictureBox, KeepsItsSizeWithoutPicture)
{
    PictureBox box;
    box.setPicture(Picture(numbered(7, 5)));
    box.setPicture(Picture());
    EXPECT_TRUE(box.picture().isNothing());
    expectPixels(box.surface(), filled(7, 5, qRgb(255, 255, 255)));
}

TEST(PictureBox, ShowsTransparentPicturesOnItsBackground)
{
    QImage icon(2, 1, QImage::Format_ARGB32);
    icon.setPixel(0, 0, qRgba(0, 0, 0, 0));
    icon.setPixel(1, 0, qRgba(1, 2, 3, 255));
    PictureBox box;
    box.setBackColor(kBlue);
    box.setPicture(Picture(icon, platform::PictureType::Icon));
    EXPECT_EQ(box.point(0, 0), kBlue);
    EXPECT_EQ(box.point(1, 0), base::rgb(1, 2, 3));
}

TEST(PictureBox, PaintsTransparentPicturesOverItsDrawing)
{
    QImage icon(2, 2, QImage::Format_ARGB32);
    icon.fill(qRgba(0, 0, 0, 0));
    icon.setPixel(0, 0, qRgba(1, 2, 3, 255));
    PictureBox box(8, 8);
    box.fillBox(0, 0, 7, 7, kRed);
    box.paintPicture(Picture(icon, platform::PictureType::Icon), 2, 2, 4, 4);
    expectPixels(box.surface(), imageOf(8, 8, [](int x, int y) {
                     return x / 2 == 1 && y / 2 == 1 ? qRgb(1, 2, 3) : qRgb(255, 0, 0);
                 }));
    box.paintPicture(Picture(icon, platform::PictureType::Icon), -20, 0, 4, 4);
    EXPECT_EQ(box.point(0, 0), kRed);
}

TEST(PictureBox, PaintsScaledPictures)
{
    PictureBox box(9, 9);
    const QImage image = numbered(3, 3);
    box.paintPicture(Picture(image), 3, 3, 6, 6);
    expectPixels(box.surface(), imageOf(9, 9, [&](int x, int y) {
                     return x >= 3 && y >= 3 ? image.pixel((x - 3) / 2, (y - 3) / 2)
                                             : qRgb(255, 255, 255);
                 }));
}

TEST(PictureBox, RoundsHalfPixelsToTheEvenOne)
{
    PictureBox box(8, 1);
    const Picture dot(filled(1, 1, qRgb(255, 0, 0)));
    box.paintPicture(dot, 0.5, 0, 1, 1);
    box.paintPicture(dot, 3.5, 0, 1, 1);
    EXPECT_EQ(box.point(0, 0), kRed);
    EXPECT_NE(box.point(1, 0), kRed);
    EXPECT_NE(box.point(3, 0), kRed);
    EXPECT_EQ(box.point(4, 0), kRed);
}

TEST(PictureBox, MirrorsTheWholePictureExactly)
{
    PictureBox box;
    const QImage image = numbered(9, 4);
    box.setPicture(Picture(image));
    box.paintPicture(box.picture(), 9, 0, -9, 4);
    expectPixels(box.surface(), image.mirrored(true, false));
}

TEST(PictureBox, MirrorsHalfAPicture)
{
    PictureBox box;
    box.setPicture(Picture(halves(10, 4)));
    mirrorLeftHalf(box);
    expectPixels(box.surface(), filled(10, 4, qRgb(255, 0, 0)));
}

TEST(PictureBox, LeavesTheMiddleColumnOfOddWidths)
{
    for (const int width : {7, 9, 101, 103}) {
        const QImage image = numbered(width, 3);
        PictureBox box;
        box.setPicture(Picture(image));
        mirrorLeftHalf(box);
        expectPixels(box.surface(), imageOf(width, 3, [&](int x, int y) {
                         return image.pixel(std::min(x, width - 1 - x), y);
                     }));
    }
}

TEST(PictureBox, DrawsBoxesWithBothCorners)
{
    PictureBox box(6, 6);
    box.fillBox(4, 3, 1, 2, kRed);
    expectPixels(box.surface(), imageOf(6, 6, [](int x, int y) {
                     const bool inside = x >= 1 && x <= 4 && y >= 2 && y <= 3;
                     return inside ? qRgb(255, 0, 0) : qRgb(255, 255, 255);
                 }));
    box.cls();
    box.frameBox(0, 0, 5, 5, kBlue);
    expectPixels(box.surface(), imageOf(6, 6, [](int x, int y) {
                     const bool border = x == 0 || y == 0 || x == 5 || y == 5;
                     return border ? qRgb(0, 0, 255) : qRgb(255, 255, 255);
                 }));
}

TEST(PictureBox, DrawsLinesWithBothEnds)
{
    PictureBox box(5, 5);
    box.line(0, 0, 4, 4, kRed);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(box.point(i, i), kRed);
    }
    box.line(4, 0, 1, 0, kBlue);
    EXPECT_EQ(box.point(0, 0), kRed);
    EXPECT_EQ(box.point(1, 0), kBlue);
    EXPECT_EQ(box.point(4, 0), kBlue);
}

TEST(PictureBox, AnswersItsBackgroundOutside)
{
    PictureBox box(2, 2);
    box.setBackColor(kRed);
    box.fillBox(0, 0, 1, 1, kBlue);
    EXPECT_EQ(box.point(-1, 0), kRed);
    EXPECT_EQ(box.point(2, 0), kRed);
    EXPECT_EQ(box.point(1, 1), kBlue);
}
