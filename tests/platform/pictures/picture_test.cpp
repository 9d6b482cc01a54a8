#include "platform/pictures/picture.h"

#include "platform/pictures/test_images.h"

#include <gtest/gtest.h>

using platform::Picture;
using platform::PictureType;

TEST(Picture, IsNothingByDefault)
{
    const Picture picture;
    EXPECT_TRUE(picture.isNothing());
    EXPECT_EQ(picture.type(), PictureType::None);
    EXPECT_EQ(picture.width(), 0);
    EXPECT_EQ(picture.height(), 0);
    EXPECT_TRUE(picture.flattened().isNull());
}

TEST(Picture, IsNothingWithoutPixels)
{
    EXPECT_TRUE(Picture(QImage()).isNothing());
    EXPECT_TRUE(Picture(test::filled(2, 2, qRgb(1, 2, 3)), PictureType::None).isNothing());
}

TEST(Picture, KeepsThePixelsOfAPlainImageWithoutACopy)
{
    const QImage image = test::numbered(5, 4);
    const Picture picture(image);
    EXPECT_EQ(picture.type(), PictureType::Bitmap);
    EXPECT_EQ(picture.width(), 5);
    EXPECT_EQ(picture.height(), 4);
    EXPECT_EQ(picture.image().constBits(), image.constBits());
    EXPECT_EQ(picture.flattened().constBits(), image.constBits());
}

TEST(Picture, TurnsOtherFormatsIntoPlainPixels)
{
    QImage image(2, 1, QImage::Format_Indexed8);
    image.setColorTable({qRgb(10, 20, 30), qRgb(40, 50, 60)});
    image.setPixel(0, 0, 1);
    image.setPixel(1, 0, 0);
    const Picture picture(image);
    EXPECT_EQ(picture.image().format(), QImage::Format_RGB32);
    EXPECT_EQ(picture.image().pixel(0, 0), qRgb(40, 50, 60));
    EXPECT_EQ(picture.image().pixel(1, 0), qRgb(10, 20, 30));
}

TEST(Picture, FlattensTransparencyOverWhite)
{
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    image.setPixel(1, 0, qRgba(200, 10, 20, 255));
    image.setPixel(2, 0, qRgba(0, 0, 0, 51));
    const Picture picture(image, PictureType::Icon);
    EXPECT_TRUE(picture.image().hasAlphaChannel());
    const QImage flat = picture.flattened();
    EXPECT_EQ(flat.format(), QImage::Format_RGB32);
    EXPECT_EQ(flat.pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(flat.pixel(1, 0), qRgb(200, 10, 20));
    EXPECT_EQ(flat.pixel(2, 0), qRgb(204, 204, 204));
}

TEST(Picture, MeasuresInPixelsWhateverTheRatio)
{
    QImage image = test::numbered(6, 4);
    image.setDevicePixelRatio(2);
    const Picture picture(image);
    EXPECT_EQ(picture.width(), 6);
    EXPECT_EQ(picture.image().devicePixelRatio(), 1.0);
}
