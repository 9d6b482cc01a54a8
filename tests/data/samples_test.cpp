#include "delivered_files.h"
#include "platform/os/file_list.h"
#include "platform/os/paths.h"

#include <QBuffer>
#include <QImageReader>
#include <gtest/gtest.h>

#include <array>

namespace {

TEST(Samples, CommonFormatsDecodeToTheirSize)
{
    struct Common {
        const char* name;
        const char* format;
        QSize size;
    };
    const std::array common{Common{"Mountain dawn.jpg", "JPG", {1600, 1000}},
                            Common{"Lavender rows.jpg", "JPG", {1280, 800}},
                            Common{"Birch wood.jpg", "JPG", {1200, 800}},
                            Common{"Poppy field.bmp", "BMP", {800, 600}},
                            Common{"Stained glass.gif", "GIF", {640, 400}},
                            Common{"Pencil.cur", "CUR", {32, 32}}};
    for (const Common& sample : common) {
        EXPECT_EQ(delivered::imageOf(delivered::sample(sample.name), sample.format).size(),
                  sample.size)
            << sample.name;
    }
}

TEST(Samples, ThePortraitPhotographLiesOnItsSideWithANote)
{
    const auto bytes = delivered::bytesOf(delivered::sample("Moon over the sea.jpg"));
    QByteArray data(reinterpret_cast<const char*>(bytes.data()),
                    static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer, "jpg");
    EXPECT_EQ(reader.size(), QSize(1400, 1000));
    EXPECT_EQ(reader.transformation(), QImageIOHandler::TransformationRotate90);
    reader.setAutoTransform(true);
    const QImage upright = reader.read();
    ASSERT_EQ(upright.size(), QSize(1000, 1400));
    EXPECT_GT(upright.pixelColor(560, 400).lightnessF(), 0.6); // the moon
    EXPECT_LT(upright.pixelColor(20, 1380).lightnessF(), 0.3); // the sea at night
}

// Their tiles show a badge in place of the picture.
TEST(Samples, ThoseWithoutAPictureOnTheirTileStandLast)
{
    platform::FileList files;
    ASSERT_TRUE(files.setPath(platform::fromNative(delivered::sample("").native())));
    ASSERT_GT(files.count(), 2);
    EXPECT_EQ(files.name(files.count() - 2), "Sunset over hills.tif");
    EXPECT_EQ(files.name(files.count() - 1), "Up in balloons.emf");
}

} // namespace
