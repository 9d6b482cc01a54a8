#include "viewer/dib32.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace {

platform::Picture bitmap(int width, int height, QRgb colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return platform::Picture(image);
}

TEST(Dib32, IsEmptyAtFirst)
{
    const cDIB32 dib;
    EXPECT_FALSE(dib.hDIB());
    EXPECT_EQ(dib.DIBitsPtr(), nullptr);
    EXPECT_EQ(dib.Width(), 0);
    EXPECT_EQ(dib.Height(), 0);
    EXPECT_EQ(dib.Size(), 0);
}

TEST(Dib32, CreatesASectionFilledWithTheColour)
{
    cDIB32 dib;
    ASSERT_TRUE(dib.Create(5, 3, base::rgb(10, 20, 30)));
    EXPECT_EQ(dib.Width(), 5);
    EXPECT_EQ(dib.Height(), 3);
    EXPECT_EQ(dib.BytesPerScanLine(), 20);
    EXPECT_EQ(dib.Size(), 60);
    EXPECT_EQ(dib.hDIBDC().pixel(4, 2), qRgb(10, 20, 30));
    // Blue is the first byte of a pixel.
    EXPECT_EQ(dib.DIBitsPtr()[0], 30);
    EXPECT_EQ(dib.DIBitsPtr()[2], 10);
}

TEST(Dib32, RefusesSizesThatNoSectionHasAndIsEmptyThen)
{
    cDIB32 dib;
    ASSERT_TRUE(dib.Create(5, 3, 0));
    EXPECT_FALSE(dib.Create(0, 3, 0));
    EXPECT_FALSE(dib.hDIB());
    EXPECT_FALSE(dib.Create(3, -1, 0));
    EXPECT_FALSE(dib.Create(1 << 20, 1 << 20, 0));
    EXPECT_FALSE(dib.Create(2147483647, 2147483647, 0));
}

TEST(Dib32, SharesThePixelsOfABitmap)
{
    const platform::Picture picture = bitmap(40, 30, qRgb(1, 2, 3));
    cDIB32 dib;
    bool taken = false;
    dib.CreateFromStdPicture(picture, taken);
    EXPECT_TRUE(taken);
    EXPECT_EQ(dib.Width(), 40);
    EXPECT_EQ(dib.Height(), 30);
    EXPECT_EQ(dib.DIBitsPtr(), picture.image().constBits());
}

TEST(Dib32, RefusesNothingAndOtherTypesAndKeepsWhatItHas)
{
    cDIB32 dib;
    ASSERT_TRUE(dib.Create(5, 3, 0));
    const QImage image = bitmap(8, 8, qRgb(9, 9, 9)).image();
    using platform::PictureType;
    for (const PictureType type :
         {PictureType::Metafile, PictureType::Icon, PictureType::EnhancedMetafile}) {
        bool taken = true;
        dib.CreateFromStdPicture(platform::Picture(image, type), taken);
        EXPECT_FALSE(taken);
    }
    bool taken = true;
    dib.CreateFromStdPicture({}, taken);
    EXPECT_FALSE(taken);
    EXPECT_EQ(dib.Width(), 5);
}

TEST(Dib32, CopiesFromASurfaceIntoTheWholeSection)
{
    QImage surface(10, 10, QImage::Format_RGB32);
    surface.fill(Qt::white);
    surface.setPixel(4, 5, qRgb(200, 100, 50));
    cDIB32 dib;
    EXPECT_FALSE(dib.LoadBlt(surface, 0, 0));
    ASSERT_TRUE(dib.Create(3, 3, 0));
    EXPECT_TRUE(dib.LoadBlt(surface, 3, 4));
    EXPECT_EQ(dib.hDIBDC().pixel(1, 1), qRgb(200, 100, 50));
    EXPECT_EQ(dib.hDIBDC().pixel(2, 2), qRgb(255, 255, 255));
}

TEST(Dib32, WritingToItLeavesThePictureItCameFrom)
{
    const platform::Picture picture = bitmap(4, 4, qRgb(1, 2, 3));
    cDIB32 dib;
    bool taken = false;
    dib.CreateFromStdPicture(picture, taken);
    QImage other(4, 4, QImage::Format_RGB32);
    other.fill(Qt::white);
    ASSERT_TRUE(dib.LoadBlt(other, 0, 0));
    EXPECT_EQ(picture.image().pixel(0, 0), qRgb(1, 2, 3));
}

TEST(Dib32, StretchesInWholePixelsAndReportsHowItWent)
{
    cDIB32 dib;
    QImage target(6, 6, QImage::Format_RGB32);
    target.fill(Qt::white);
    QPainter painter(&target);
    bool result = false;
    dib.Stretch(painter, 0, 0, 6, 6, 0, 0, 2, 2, 3, result);
    EXPECT_FALSE(result);
    ASSERT_TRUE(dib.Create(2, 2, base::rgb(10, 20, 30)));
    dib.Stretch(painter, 0, 0, 4, 4, 0, 0, 2, 2, 3, result);
    EXPECT_TRUE(result);
    dib.Stretch(painter, 0, 0, 0, 4, 0, 0, 2, 2, 3, result);
    EXPECT_FALSE(result);
    painter.end();
    EXPECT_EQ(target.pixel(3, 3), qRgb(10, 20, 30));
    EXPECT_EQ(target.pixel(4, 4), qRgb(255, 255, 255));
}

TEST(Dib32, DestroyEmptiesIt)
{
    cDIB32 dib;
    ASSERT_TRUE(dib.Create(5, 3, 0));
    dib.Destroy();
    EXPECT_FALSE(dib.hDIB());
    EXPECT_EQ(dib.DIBitsPtr(), nullptr);
    EXPECT_EQ(dib.Size(), 0);
}

} // namespace
