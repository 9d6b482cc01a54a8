#include "platform/pictures/picture_files.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/test_images.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>
#include <random>

using platform::loadPicture;
using platform::loadTilePicture;

namespace {

constexpr int kFilesOfAKind = 150;

// A few changed bytes, mostly near the head; sometimes the end is missing.
QByteArray damaged(QByteArray bytes, std::mt19937& random)
{
    const auto below = [&random](qsizetype limit) {
        return qsizetype(random() % std::uint32_t(limit));
    };
    const qsizetype changes = 1 + below(8);
    for (qsizetype i = 0; i < changes; ++i) {
        const qsizetype reach =
            below(2) == 0 ? std::min<qsizetype>(bytes.size(), 128) : bytes.size();
        bytes[below(reach)] = char(random());
    }
    if (below(4) == 0) {
        bytes.truncate(below(bytes.size()));
    }
    return bytes;
}

QSize fitInto(QSize natural, QSize box)
{
    return natural.scaled(box, Qt::KeepAspectRatio);
}

// Whatever is in the file, an answer comes, and a picture is whole in itself.
void expectAnswers(const QByteArray& bytes, unsigned seed)
{
    std::mt19937 random(seed);
    const support::TempTree tree;
    for (int i = 0; i < kFilesOfAKind; ++i) {
        tree.add({"a", damaged(bytes, random).toStdString()});
        if (const auto picture = loadPicture(tree.path("a"))) {
            EXPECT_FALSE(picture->isNothing());
            EXPECT_EQ(picture->flattened().size(), picture->image().size());
        }
        if (const auto tile = loadTilePicture(tree.path("a"), QSize(9, 9), fitInto)) {
            EXPECT_FALSE(tile->naturalSize.isEmpty());
            EXPECT_FALSE(tile->picture.isNothing());
        }
    }
}

} // namespace

TEST(DamagedPictures, JpegsAreAnswered)
{
    expectAnswers(test::jpegFile(test::numbered(48, 40), {.quality = 50}), 1);
    expectAnswers(test::jpegFile(test::numbered(48, 40),
                                 {.quality = 50, .progressive = true, .orientation = 6}),
                  2);
    expectAnswers(test::jpegFile(test::numbered(48, 40),
                                 {.quality = 50, .ink = test::JpegOptions::Ink::Adobe}),
                  3);
}

TEST(DamagedPictures, BmpsAreAnswered)
{
    expectAnswers(test::bmpFile(test::numbered(21, 17)), 4);
}

TEST(DamagedPictures, GifsAreAnswered)
{
    test::GifFrame frame;
    for (int i = 0; i < 30 * 20; ++i) {
        frame.indices.push_back(i * 7 % 4);
    }
    expectAnswers(test::gifFile(30, 20, {frame, frame}), 5);
}

TEST(DamagedPictures, IconsAreAnswered)
{
    const QImage image = test::numbered(24, 24).convertToFormat(QImage::Format_ARGB32);
    const QImage small = image.copy(0, 0, 8, 8);
    expectAnswers(test::iconFile({{small}, {image, test::IconCoding::Png}, {image}}), 6);
}
