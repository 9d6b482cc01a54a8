#include "thumbs/miniature.h"

#include "core/state.h"
#include "formats/hooks.h"
#include "platform/pictures/picture_saver.h"
#include "support/temp_tree.h"

#include <QImage>
#include <gtest/gtest.h>

using support::TempTree;
using thumbs::miniature;

namespace {

QImage plain(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(200, 30, 40));
    return image;
}

// A TGA file without compression, all its pixels blue.
std::string blueTga(int width, int height)
{
    std::string file(18, '\0');
    file[2] = 2;
    file[12] = char(width & 255);
    file[13] = char(width >> 8);
    file[14] = char(height & 255);
    file[15] = char(height >> 8);
    file[16] = 24;
    for (int i = 0; i < width * height; ++i) {
        file += std::string("\xFF\x00\x00", 3);
    }
    return file;
}

} // namespace

TEST(Miniature, FitsItsSquareInThePicturesProportions)
{
    const TempTree tree({{"p/", ""}});
    ASSERT_TRUE(plain(640, 320).save(tree.path("p/wide.jpg")));
    const QImage once = miniature(tree.path("p/wide.jpg"), 1);
    EXPECT_EQ(once.size(), QSize(128, 64));
    EXPECT_NEAR(once.pixelColor(60, 30).red(), 200, 4);
    const QImage twice = miniature(tree.path("p/wide.jpg"), 2);
    EXPECT_EQ(twice.size(), QSize(256, 128));
    EXPECT_EQ(twice.deviceIndependentSize(), QSizeF(128, 64));
}

TEST(Miniature, NeverEnlarges)
{
    const TempTree tree({{"p/", ""}});
    ASSERT_TRUE(plain(20, 10).save(tree.path("p/small.bmp")));
    EXPECT_EQ(miniature(tree.path("p/small.bmp"), 1).size(), QSize(20, 10));
}

TEST(Miniature, ShowsOwnFormatsAndLeavesNoTrace)
{
    const TempTree tree({{"p/blue.tga", blueTga(300, 100)}});
    core::state().rawImage = {};
    const QImage image = miniature(tree.path("p/blue.tga"), 1);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.width(), 128);
    EXPECT_EQ(image.pixelColor(60, 20), QColor(0, 0, 255));
    EXPECT_EQ(core::state().rawImage.Width, 0);
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
}

TEST(Miniature, IsNullForWhatIsNoPictureAndSaysNothing)
{
    const TempTree tree({{"p/words.txt", "words"}, {"p/cut.psd", "8BPS"}, {"p/folder/", ""}});
    int reports = 0;
    formats::setHooks({[&](const char*) { ++reports; }, {}});
    for (const char* name : {"p/words.txt", "p/cut.psd", "p/folder", "p/none.bmp"}) {
        EXPECT_TRUE(miniature(tree.path(name), 1).isNull()) << name;
    }
    EXPECT_EQ(reports, 0);
    ASSERT_TRUE(formats::hooks().report);
    formats::hooks().report("still in place");
    EXPECT_EQ(reports, 1);
    formats::setHooks({});
}
