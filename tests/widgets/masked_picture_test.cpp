#include "widgets/masked_picture.h"

#include <gtest/gtest.h>

using widgets::maskedPicture;
using widgets::Shade;
using widgets::silhouette;
using widgets::Tint;

namespace {

QImage twoPixels(QColor first, QColor second)
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixelColor(0, 0, first);
    image.setPixelColor(1, 0, second);
    return image;
}

} // namespace

TEST(MaskedPicture, ClearsThePixelsOfTheMaskColour)
{
    const QImage picture = twoPixels(QColor(0x10, 0x20, 0x30), QColor(0x11, 0x20, 0x30));
    const QImage result = maskedPicture(picture, base::rgb(0x10, 0x20, 0x30), Tint::Colours);
    EXPECT_EQ(result.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(result.pixelColor(1, 0), QColor(0x11, 0x20, 0x30));
}

TEST(MaskedPicture, KeepsEveryPixelWithoutAMask)
{
    const QImage picture = twoPixels(Qt::red, Qt::blue);
    EXPECT_EQ(maskedPicture(picture, std::nullopt, Tint::Colours), picture);
}

TEST(MaskedPicture, WeighsTheChannelsOfGreys)
{
    EXPECT_EQ(widgets::greyOf(255, 0, 0), 76);
    EXPECT_EQ(widgets::greyOf(0, 255, 0), 150);
    EXPECT_EQ(widgets::greyOf(0, 0, 255), 28);
    EXPECT_EQ(widgets::greyOf(255, 255, 255), 255);
    const QImage grey = maskedPicture(twoPixels(Qt::red, Qt::green), std::nullopt, Tint::Grey);
    EXPECT_EQ(grey.pixelColor(0, 0), QColor(76, 76, 76));
    EXPECT_EQ(grey.pixelColor(1, 0), QColor(150, 150, 150));
}

TEST(MaskedPicture, KeepsTheTransparencyAndTheRatioOfItsSource)
{
    QImage picture = twoPixels(QColor(255, 0, 0, 100), Qt::blue);
    picture.setDevicePixelRatio(2);
    const QImage grey = maskedPicture(picture, std::nullopt, Tint::Grey);
    EXPECT_EQ(grey.pixelColor(0, 0).alpha(), 100);
    EXPECT_EQ(grey.devicePixelRatio(), 2.0);
}

TEST(MaskedPicture, DrawsSilhouettesInOneColour)
{
    const QImage picture = twoPixels(Qt::white, Qt::blue);
    const QImage full = silhouette(picture, 0xFFFFFFU, 0x332211, Shade::Full);
    EXPECT_EQ(full.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(full.pixelColor(1, 0), QColor(0x11, 0x22, 0x33));
    const QImage soft = silhouette(picture, 0xFFFFFFU, 0x332211, Shade::Soft);
    EXPECT_EQ(soft.pixelColor(1, 0), QColor(0x11, 0x22, 0x33, 85));
}
