#include "widgets/scaled_picture.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using widgets::ScaledPicture;

namespace {

QImage plain(int edge, double ratio)
{
    QImage image(edge, edge, QImage::Format_RGB32);
    image.fill(Qt::gray);
    image.setDevicePixelRatio(ratio);
    return image;
}

} // namespace

TEST(ScaledPicture, HandsOutTheVariantForTheScreen)
{
    ScaledPicture picture(plain(16, 1));
    picture.addVariant(plain(48, 3));
    picture.addVariant(plain(32, 2));
    EXPECT_EQ(picture.size(), QSize(16, 16));
    EXPECT_EQ(picture.forRatio(1).width(), 16);
    EXPECT_EQ(picture.forRatio(1.5).width(), 32);
    EXPECT_EQ(picture.forRatio(2).width(), 32);
    EXPECT_EQ(picture.forRatio(4).width(), 48);
}

TEST(ScaledPicture, IsNullWithoutVariants)
{
    const ScaledPicture picture{QImage()};
    EXPECT_TRUE(picture.isNull());
    EXPECT_TRUE(picture.size().isEmpty());
    EXPECT_TRUE(picture.forRatio(2).isNull());
}

TEST(ScaledPicture, ReadsTheVariantsBesideAFile)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(plain(16, 1).save(folder.filePath("zoom.png")));
    ASSERT_TRUE(plain(32, 1).save(folder.filePath("zoom@2x.png")));
    const ScaledPicture picture = ScaledPicture::fromFile(folder.filePath("zoom.png"), 3);
    EXPECT_EQ(picture.size(), QSize(16, 16));
    EXPECT_EQ(picture.forRatio(2).width(), 32);
    EXPECT_EQ(picture.forRatio(3).width(), 32);
    EXPECT_TRUE(ScaledPicture::fromFile(folder.filePath("missing.png")).isNull());

    // What no screen can show isn't read.
    const ScaledPicture coarse = ScaledPicture::fromFile(folder.filePath("zoom.png"), 1);
    EXPECT_EQ(coarse.forRatio(2).width(), 16);
}
