#include "platform/delivered_icon.h"
#include "support/temp_tree.h"

#include <QColor>
#include <QFile>
#include <gtest/gtest.h>

namespace {

using support::TempTree;

QImage pictureWithAlpha()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setPixelColor(0, 0, QColor(255, 0, 0, 255));
    image.setPixelColor(2, 0, QColor(0, 255, 0, 255));
    image.setPixelColor(1, 1, QColor(0, 0, 255, 128));
    return image;
}

void expectSamePicture(const QImage& read, const QImage& written)
{
    ASSERT_EQ(read.size(), written.size());
    const QImage wanted = written.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < read.height(); ++y) {
        for (int x = 0; x < read.width(); ++x) {
            EXPECT_EQ(read.pixel(x, y), wanted.pixel(x, y)) << x << ", " << y;
        }
    }
}

} // namespace

TEST(DeliveredPng, KeepsColoursAndAlpha)
{
    const TempTree tree;
    const QImage written = pictureWithAlpha();
    ASSERT_TRUE(written.save(tree.path("a.png")));
    const QImage read = platform::deliveredPng(tree.path("a.png"));
    EXPECT_EQ(read.format(), QImage::Format_ARGB32_Premultiplied);
    expectSamePicture(read, written);
}

TEST(DeliveredPng, ReadsGreyAndIndexedFiles)
{
    const TempTree tree;
    const QImage opaque = pictureWithAlpha().convertToFormat(QImage::Format_RGB32);
    for (const QImage::Format format : {QImage::Format_Grayscale8, QImage::Format_Indexed8}) {
        const QImage written = opaque.convertToFormat(format);
        ASSERT_TRUE(written.save(tree.path("a.png")));
        expectSamePicture(platform::deliveredPng(tree.path("a.png")), written);
    }
}

TEST(DeliveredPng, GivesNothingForMissingOrDamagedFiles)
{
    const TempTree tree({{"text.png", "no picture"}, {"empty.png", ""}});
    ASSERT_TRUE(pictureWithAlpha().save(tree.path("cut.png")));
    QFile cut(tree.path("cut.png"));
    ASSERT_TRUE(cut.resize(cut.size() / 2));
    for (const char* name : {"missing.png", "text.png", "empty.png", "cut.png"}) {
        EXPECT_TRUE(platform::deliveredPng(tree.path(name)).isNull()) << name;
    }
}
