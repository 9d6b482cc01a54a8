#include "delivered_files.h"
#include "platform/os/file_list.h"
#include "platform/os/paths.h"

#include <QColor>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

namespace {

constexpr std::array kStems{"plastic-left", "plastic-right", "plastic-top", "plastic-bottom",
                            "plastic-lt",   "plastic-rt",    "plastic-lb",  "plastic-rb"};

QImage tile(const std::string& stem, const std::string& style)
{
    return delivered::imageOf(delivered::frame("FrameLib/" + stem + style + ".jpg"), "JPG");
}

platform::FileList stylePictures()
{
    platform::FileList files;
    EXPECT_TRUE(files.setPath(platform::fromNative(delivered::frame("").native())));
    return files;
}

std::string styleOf(const platform::FileList& files, int index)
{
    return files.name(index).left(2).toStdString();
}

double meanDifference(const QImage& one, const QImage& other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
        }
    }
    return sum / (one.width() * one.height());
}

QImage row(const QImage& image, int y)
{
    return image.copy(0, y, image.width(), 1);
}

QImage column(const QImage& image, int x)
{
    return image.copy(x, 0, 1, image.height());
}

} // namespace

TEST(Frames, EveryStyleHasItsPictureAndAllItsTiles)
{
    const platform::FileList files = stylePictures();
    ASSERT_GE(files.count(), 8);
    for (int i = 0; i < files.count(); ++i) {
        const std::string style = styleOf(files, i);
        EXPECT_FALSE(
            delivered::imageOf(delivered::frame(files.name(i).toStdString()), "JPG").isNull())
            << style;
        for (const char* stem : kStems) {
            const QImage image = tile(stem, style);
            EXPECT_GE(image.width(), 70) << stem << style;
            EXPECT_EQ(image.width(), image.height()) << stem << style;
        }
    }
}

// What stands along an edge goes on from tile to tile and into the corners.
TEST(Frames, TilesJoin)
{
    constexpr double kSeam = 9; // of 255 levels
    const platform::FileList files = stylePictures();
    for (int i = 0; i < files.count(); ++i) {
        const std::string style = styleOf(files, i);
        const QImage left = tile("plastic-left", style);
        const QImage right = tile("plastic-right", style);
        const QImage top = tile("plastic-top", style);
        const QImage bottom = tile("plastic-bottom", style);
        const int last = left.width() - 1;
        EXPECT_LT(meanDifference(row(left, last), row(left, 0)), kSeam) << style;
        EXPECT_LT(meanDifference(row(right, last), row(right, 0)), kSeam) << style;
        EXPECT_LT(meanDifference(column(top, last), column(top, 0)), kSeam) << style;
        EXPECT_LT(meanDifference(column(bottom, last), column(bottom, 0)), kSeam) << style;

        const QImage leftTop = tile("plastic-lt", style);
        EXPECT_LT(meanDifference(row(leftTop, last), row(left, 0)), kSeam) << style;
        EXPECT_LT(meanDifference(column(leftTop, last), column(top, 0)), kSeam) << style;
        const QImage rightBottom = tile("plastic-rb", style);
        EXPECT_LT(meanDifference(row(rightBottom, 0), row(right, last)), kSeam) << style;
        EXPECT_LT(meanDifference(column(rightBottom, 0), column(bottom, last)), kSeam) << style;
    }
}
