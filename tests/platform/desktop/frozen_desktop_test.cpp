#include "platform/desktop/frozen_desktop.h"

#include <gtest/gtest.h>

using platform::frozenByPixels;
using platform::frozenInOneScale;

namespace {

QImage picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

} // namespace

TEST(FrozenDesktop, GivesEachScreenItsOwnPixels)
{
    const auto frozen = frozenByPixels(picture(3520, 1600),
                                       {{{0, 0, 1920, 1080}, 1.0}, {{1920, 0, 800, 800}, 2.0}});
    ASSERT_TRUE(frozen);
    ASSERT_EQ(frozen->screens.size(), 2U);
    EXPECT_EQ(frozen->screens[0].pixels, QRect(0, 0, 1920, 1080));
    EXPECT_EQ(frozen->screens[0].ratio(), 1.0);
    EXPECT_EQ(frozen->screens[1].place, QRect(1920, 0, 800, 800));
    EXPECT_EQ(frozen->screens[1].pixels, QRect(1920, 0, 1600, 1600));
    EXPECT_EQ(frozen->screens[1].ratio(), 2.0);
}

TEST(FrozenDesktop, EndsAScreenWhereThePictureEnds)
{
    const auto frozen = frozenByPixels(picture(1366, 768), {{{0, 0, 911, 512}, 1.5}});
    ASSERT_TRUE(frozen);
    EXPECT_EQ(frozen->screens[0].pixels, QRect(0, 0, 1366, 768));
}

TEST(FrozenDesktop, SpreadsAPictureInOneScaleOverAllScreens)
{
    const auto frozen = frozenInOneScale(picture(3840, 2160),
                                         {{{-960, 0, 960, 1080}, 1.0}, {{0, 0, 960, 1080}, 2.0}});
    ASSERT_TRUE(frozen);
    ASSERT_EQ(frozen->screens.size(), 2U);
    EXPECT_EQ(frozen->screens[0].pixels, QRect(0, 0, 1920, 2160));
    EXPECT_EQ(frozen->screens[1].pixels, QRect(1920, 0, 1920, 2160));
    EXPECT_EQ(frozen->screens[1].ratio(), 2.0);
}

TEST(FrozenDesktop, IsNothingWithoutScreensOrPixels)
{
    EXPECT_FALSE(frozenByPixels(picture(100, 100), {}));
    EXPECT_FALSE(frozenInOneScale(picture(100, 100), {}));
    EXPECT_FALSE(frozenByPixels(QImage(), {{{0, 0, 100, 100}, 1.0}}));
    EXPECT_FALSE(frozenInOneScale(QImage(), {{{0, 0, 100, 100}, 1.0}}));
    EXPECT_FALSE(frozenByPixels(picture(100, 100), {{{200, 0, 100, 100}, 1.0}}));
}

TEST(FrozenDesktop, HasPlainPixelsWhateverThePictureHad)
{
    const auto frozen = frozenByPixels(picture(10, 10).convertToFormat(QImage::Format_RGB30),
                                       {{{0, 0, 10, 10}, 1.0}});
    ASSERT_TRUE(frozen);
    EXPECT_EQ(frozen->picture, picture(10, 10));
}
