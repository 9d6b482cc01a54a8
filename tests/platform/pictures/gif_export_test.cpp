#include "platform/pictures/gif_export.h"

#include "platform/pictures/picture_loader.h"
#include "platform/pictures/test_images.h"
#include "support/full_disk.h"
#include "support/temp_tree.h"

#include <cmath>

using test::expectPixels;
using test::numbered;

namespace {

class GifExport : public testing::Test {
protected:
    support::TempTree tree;
};

} // namespace

TEST_F(GifExport, KeepsAFewColoursExactly)
{
    const QImage image =
        test::imageOf(64, 32, [](int x, int y) { return qRgb(4 * (x % 16), 16 * (y % 16), 100); });
    EXPECT_TRUE(platform::writeGif(platform::Picture(image), tree.path("few.gif")));
    const auto saved = platform::loadPicture(tree.path("few.gif"));
    ASSERT_TRUE(saved);
    expectPixels(saved->flattened(), image);
    EXPECT_FALSE(saved->image().hasAlphaChannel());
}

TEST_F(GifExport, KeepsManyColoursNearly)
{
    const QImage image = test::imageOf(256, 128, [](int x, int y) { return qRgb(x, 2 * y, 60); });
    EXPECT_TRUE(platform::writeGif(platform::Picture(image), tree.path("many.gif")));
    const auto saved = platform::loadPicture(tree.path("many.gif"));
    ASSERT_TRUE(saved);
    const QImage pixels = saved->flattened();
    double sum = 0;
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 256; ++x) {
            sum += std::pow(qRed(pixels.pixel(x, y)) - x, 2) +
                   std::pow(qGreen(pixels.pixel(x, y)) - 2 * y, 2);
        }
    }
    // 256 squares of 16 by 16 levels are off by 21 in the mean square of each channel.
    EXPECT_LT(sum / 2 / 256 / 128, 30);
}

TEST_F(GifExport, LaysATransparentPictureOverWhite)
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    image.setPixel(1, 0, qRgba(10, 20, 30, 255));
    EXPECT_TRUE(platform::writeGif(platform::Picture(image), tree.path("over.gif")));
    const auto saved = platform::loadPicture(tree.path("over.gif"));
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->flattened().pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(saved->flattened().pixel(1, 0), qRgb(10, 20, 30));
}

TEST_F(GifExport, WritesNothingOfWhatIsNoBitmap)
{
    tree.add({"old.gif", "kept"});
    const QImage image = numbered(5, 5);
    for (const platform::PictureType type :
         {platform::PictureType::Metafile, platform::PictureType::Icon,
          platform::PictureType::EnhancedMetafile}) {
        EXPECT_FALSE(platform::writeGif(platform::Picture(image, type), tree.path("old.gif")));
    }
    EXPECT_FALSE(platform::writeGif(platform::Picture(), tree.path("old.gif")));
    EXPECT_FALSE(platform::writeGif(platform::Picture(test::filled(65536, 1, 0)), tree.path("old.gif")));
    EXPECT_EQ(tree.content("old.gif"), "kept");
}

TEST_F(GifExport, TellsThatAFileDidNotFitOnTheDisk)
{
    const support::FullDisk disk(100);
    EXPECT_FALSE(platform::writeGif(platform::Picture(numbered(50, 50)), tree.path("cut.gif")));
}
