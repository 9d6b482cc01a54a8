#include "metafile_helper/metafile_files.h"
#include "platform/pictures/metafile_reader.h"
#include "platform/pictures/picture_loader.h"
#include "support/temp_tree.h"

#include <QFile>
#include <gtest/gtest.h>
#include <random>

using platform::loadPicture;
using test::EmfFile;
using test::WmfFile;

namespace {

const QRgb kRed = qRgb(255, 0, 0);
const QRgb kBlue = qRgb(0, 0, 255);
const QRgb kWhite = qRgb(255, 255, 255);

std::optional<platform::Picture> loaded(const QByteArray& bytes, const char* name = "drawing")
{
    const support::TempTree tree({{std::string("files/") + name, bytes.toStdString()}});
    return loadPicture(tree.path(std::string("files/") + name));
}

// Whether the helper came to an end by itself, with a drawing or without one.
bool isAnswered(const QByteArray& bytes)
{
    const support::TempTree tree({{"file", bytes.toStdString()}});
    QFile file(tree.path("file"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const platform::DrawnMetafile drawn =
        platform::readMetafile(file, platform::metafileHelper(), std::chrono::seconds(60));
    EXPECT_EQ(drawn.end == platform::HelperEnd::Answered, !drawn.image.isNull());
    return drawn.end == platform::HelperEnd::Answered || drawn.end == platform::HelperEnd::Refused;
}

WmfFile smallWmf()
{
    return WmfFile({QPoint(0, 0), QPoint(100, 60)}, 96);
}

} // namespace

TEST(Metafiles, WindowsMetafilesAreDrawnAtTheirSize)
{
    WmfFile file = smallWmf();
    file.paintWith(255, 0, 0);
    file.rectangle(10, 10, 50, 50);
    file.paintWith(0, 0, 255);
    file.ellipse(60, 10, 100, 50);
    const auto picture = loaded(file.bytes());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->type(), platform::PictureType::Bitmap);
    const QImage image = picture->flattened();
    EXPECT_EQ(image.size(), QSize(100, 60));
    EXPECT_EQ(image.pixel(30, 30), kRed);
    EXPECT_EQ(image.pixel(12, 12), kRed);
    EXPECT_EQ(image.pixel(80, 30), kBlue);
    EXPECT_EQ(image.pixel(62, 12), kWhite);
    EXPECT_EQ(image.pixel(55, 30), kWhite);
    EXPECT_EQ(image.pixel(3, 3), kWhite);
}

TEST(Metafiles, PolygonsAreFilled)
{
    WmfFile file = smallWmf();
    file.paintWith(255, 0, 0);
    file.triangle({0, 0}, {100, 0}, {0, 60});
    const auto picture = loaded(file.bytes());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->flattened().pixel(20, 20), kRed);
    EXPECT_EQ(picture->flattened().pixel(90, 50), kWhite);
}

TEST(Metafiles, NamesAndMissingHeadsDoNotMatter)
{
    WmfFile file = smallWmf();
    file.paintWith(255, 0, 0);
    file.rectangle(0, 0, 100, 60);
    const auto picture = loaded(file.bytes(false), "drawing.bmp");
    ASSERT_TRUE(picture);
    const QImage image = picture->flattened();
    EXPECT_EQ(image.pixel(image.width() / 2, image.height() / 2), kRed);
}

TEST(Metafiles, TextIsSurvived)
{
    WmfFile file = smallWmf();
    file.text({10, 10}, "Words");
    file.paintWith(255, 0, 0);
    file.rectangle(50, 30, 100, 60);
    const auto picture = loaded(file.bytes());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->flattened().pixel(75, 45), kRed);
}

TEST(Metafiles, EnhancedMetafilesAreDrawnAtTheirSize)
{
    EmfFile file({120, 80});
    file.paintWith(255, 0, 0);
    file.rectangle(10, 10, 60, 70);
    file.paintWith(0, 0, 255);
    file.ellipse(70, 20, 110, 60);
    const auto picture = loaded(file.bytes());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->type(), platform::PictureType::Bitmap);
    const QImage image = picture->flattened();
    EXPECT_EQ(image.size(), QSize(120, 80));
    EXPECT_EQ(image.pixel(30, 40), kRed);
    EXPECT_EQ(image.pixel(90, 40), kBlue);
    EXPECT_EQ(image.pixel(72, 22), kWhite);
    EXPECT_EQ(image.pixel(4, 4), kWhite);
    EXPECT_EQ(qAlpha(picture->image().pixel(4, 4)), 0);
}

TEST(Metafiles, TilesComeAtTheNaturalSize)
{
    const support::TempTree tree({{"a.emf", EmfFile({120, 80}).bytes().toStdString()}});
    const auto fit = [](QSize natural, QSize) { return natural; };
    const auto tile = platform::loadTilePicture(tree.path("a.emf"), QSize(9, 9), fit);
    ASSERT_TRUE(tile);
    EXPECT_EQ(tile->naturalSize, QSize(120, 80));
    EXPECT_EQ(tile->picture.image().size(), QSize(120, 80));
}

TEST(Metafiles, TruncatedFilesAreAnswered)
{
    EmfFile emf({40, 40});
    emf.paintWith(1, 2, 3);
    emf.rectangle(0, 0, 40, 40);
    WmfFile wmf = smallWmf();
    wmf.paintWith(1, 2, 3);
    wmf.rectangle(0, 0, 100, 60);
    for (const QByteArray& bytes : {emf.bytes(), wmf.bytes()}) {
        EXPECT_FALSE(loaded(bytes.left(8)));
        for (const int part : {2, 3, 5}) {
            EXPECT_TRUE(isAnswered(bytes.left(bytes.size() * (part - 1) / part))) << part;
        }
    }
}

TEST(Metafiles, HugeClaimsAreDrawnSmaller)
{
    WmfFile file({QPoint(-16000, -8000), QPoint(16000, 8000)}, 24);
    file.paintWith(255, 0, 0);
    file.rectangle(-16000, -8000, 16000, 8000);
    const auto picture = loaded(file.bytes());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->image().size(), QSize(4096, 2048));
    EXPECT_EQ(picture->flattened().pixel(2000, 1000), kRed);
}

TEST(Metafiles, RecordsThatLieAboutTheirLengthAreAnswered)
{
    for (const int length : {0, 1, 2, 0x7FFFFFF}) {
        QByteArray bytes = smallWmf().bytes();
        constexpr qsizetype kFirstRecord = 22 + 18;
        for (int i = 0; i < 4; ++i) {
            bytes[kFirstRecord + i] = char(length >> (8 * i) & 255);
        }
        EXPECT_TRUE(isAnswered(bytes)) << length;
    }
    for (const qint64 length : {qint64(0), qint64(4), qint64(0x7FFFFFFC)}) {
        EmfFile file({20, 20});
        file.rectangle(0, 0, 20, 20);
        QByteArray bytes = file.bytes();
        constexpr qsizetype kFirstRecord = 108;
        for (int i = 0; i < 4; ++i) {
            bytes[kFirstRecord + 4 + i] = char(length >> (8 * i) & 255);
        }
        EXPECT_TRUE(isAnswered(bytes)) << length;
    }
}

TEST(Metafiles, DamagedFilesAreAnswered)
{
    EmfFile emf({60, 40});
    emf.paintWith(200, 100, 50);
    emf.ellipse(0, 0, 60, 40);
    WmfFile wmf = smallWmf();
    wmf.paintWith(200, 100, 50);
    wmf.triangle({0, 0}, {90, 10}, {20, 50});
    wmf.text({5, 5}, "Damaged");
    std::mt19937 random(7);
    for (const QByteArray& whole : {emf.bytes(), wmf.bytes()}) {
        for (int i = 0; i < 25; ++i) {
            QByteArray bytes = whole;
            for (int change = 0; change < 3; ++change) {
                bytes[qsizetype(random() % std::uint32_t(bytes.size()))] = char(random());
            }
            EXPECT_TRUE(isAnswered(bytes)) << i;
        }
    }
}
