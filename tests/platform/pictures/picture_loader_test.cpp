#include "platform/pictures/picture_loader.h"

#include "platform/pictures/picture_files.h"
#include "platform/pictures/test_images.h"
#include "support/temp_tree.h"

#include <QBuffer>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

using platform::loadPicture;
using platform::loadTilePicture;
using platform::Picture;
using support::TempTree;
using test::bmpFile;
using test::expectPixels;
using test::gifFile;
using test::iconFile;
using test::imageOf;
using test::jpegFile;
using test::JpegOptions;
using test::numbered;

namespace {

std::optional<Picture> loaded(const QByteArray& bytes, const char* name = "picture")
{
    const TempTree tree({{std::string("files/") + name, bytes.toStdString()}});
    return loadPicture(tree.path(std::string("files/") + name));
}

// Large areas of plain colours, which JPEG keeps.
QImage quarters(int width, int height)
{
    return imageOf(width, height, [=](int x, int y) {
        const bool right = x >= width / 2;
        const bool low = y >= height / 2;
        return low ? (right ? qRgb(250, 250, 250) : qRgb(10, 20, 240))
                   : (right ? qRgb(20, 230, 10) : qRgb(240, 10, 20));
    });
}

void expectLike(const QImage& image, const QImage& expected, int tolerance)
{
    ASSERT_EQ(image.size(), expected.size());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb a = image.pixel(x, y);
            const QRgb b = expected.pixel(x, y);
            const int difference =
                std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                          std::abs(qBlue(a) - qBlue(b))});
            ASSERT_LE(difference, tolerance) << "at " << x << ", " << y;
        }
    }
}

// What an orientation number makes of stored pixels.
QImage shownAs(const QImage& stored, int orientation)
{
    QTransform quarterTurn;
    quarterTurn.rotate(90);
    switch (orientation) {
    case 2:
        return stored.mirrored(true, false);
    case 3:
        return stored.mirrored(true, true);
    case 4:
        return stored.mirrored(false, true);
    case 5:
        return stored.transformed(quarterTurn).mirrored(true, false);
    case 6:
        return stored.transformed(quarterTurn);
    case 7:
        return stored.transformed(quarterTurn).mirrored(false, true);
    case 8:
        return stored.transformed(quarterTurn).mirrored(true, true);
    default:
        return stored;
    }
}

QByteArray encodedBy(const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(numbered(20, 20).save(&buffer, format));
    return bytes;
}

QSize fitInto(QSize natural, QSize box)
{
    return natural.scaled(box, Qt::KeepAspectRatio);
}

} // namespace

TEST(LoadPicture, ReadsBmp)
{
    const QImage image = numbered(13, 9);
    const auto picture = loaded(bmpFile(image));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->type(), platform::PictureType::Bitmap);
    EXPECT_EQ(picture->image().format(), QImage::Format_RGB32);
    expectPixels(picture->image(), image);
}

TEST(LoadPicture, ReadsJpeg)
{
    const QImage image = quarters(64, 48);
    for (const bool progressive : {false, true}) {
        JpegOptions options;
        options.progressive = progressive;
        const auto picture = loaded(jpegFile(image, options));
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->image().format(), QImage::Format_RGB32);
        expectLike(picture->image(), image, 20);
    }
}

TEST(LoadPicture, TurnsJpegsByTheirOrientation)
{
    const QImage image = quarters(64, 32);
    for (int orientation = 1; orientation <= 8; ++orientation) {
        for (const bool bigEndian : {false, true}) {
            JpegOptions options;
            options.orientation = orientation;
            options.bigEndianExif = bigEndian;
            const auto picture = loaded(jpegFile(image, options));
            ASSERT_TRUE(picture);
            expectLike(picture->image(), shownAs(image, orientation), 20);
        }
    }
}

TEST(LoadPicture, TurnsPicturesOfAnyHeight)
{
    const QImage image = quarters(40, 46);
    for (int orientation = 1; orientation <= 8; ++orientation) {
        JpegOptions options;
        options.orientation = orientation;
        const auto picture = loaded(jpegFile(image, options));
        ASSERT_TRUE(picture);
        expectLike(picture->image(), shownAs(image, orientation), 60);
    }
}

TEST(LoadPicture, ShowsJpegsUprightForOrientationsThatDoNotExist)
{
    for (const int orientation : {9, 200}) {
        JpegOptions options;
        options.orientation = orientation;
        const auto picture = loaded(jpegFile(quarters(64, 32), options));
        ASSERT_TRUE(picture);
        expectLike(picture->image(), quarters(64, 32), 20);
    }
}

TEST(LoadPicture, ConvertsInks)
{
    const QImage image = quarters(64, 48);
    for (const auto ink : {JpegOptions::Ink::Plain, JpegOptions::Ink::Adobe}) {
        JpegOptions options;
        options.ink = ink;
        const auto picture = loaded(jpegFile(image, options));
        ASSERT_TRUE(picture);
        expectLike(picture->image(), image, 20);
    }
}

TEST(LoadPicture, TakesTheFirstFrameOfAGif)
{
    const QByteArray bytes = gifFile(2, 2, {{{0, 1, 2, 3}, -1}, {{3, 3, 3, 3}, -1}});
    const auto picture = loaded(bytes);
    ASSERT_TRUE(picture);
    const QImage flat = picture->flattened();
    ASSERT_EQ(flat.size(), QSize(2, 2));
    EXPECT_EQ(flat.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(flat.pixel(1, 0), qRgb(255, 255, 255));
    EXPECT_EQ(flat.pixel(0, 1), qRgb(255, 0, 0));
    EXPECT_EQ(flat.pixel(1, 1), qRgb(0, 0, 255));
}

TEST(LoadPicture, KeepsTheTransparencyOfAGif)
{
    const auto picture = loaded(gifFile(2, 1, {{{0, 3}, 0}}));
    ASSERT_TRUE(picture);
    EXPECT_EQ(qAlpha(picture->image().pixel(0, 0)), 0);
    EXPECT_EQ(picture->image().pixel(1, 0), qRgb(0, 0, 255));
    EXPECT_EQ(picture->flattened().pixel(0, 0), qRgb(255, 255, 255));
}

TEST(LoadPicture, TakesTheLargestImageOfAnIcon)
{
    QImage small(16, 16, QImage::Format_ARGB32);
    small.fill(qRgba(255, 0, 0, 255));
    QImage large(32, 32, QImage::Format_ARGB32);
    large.fill(qRgba(0, 0, 255, 255));
    large.setPixel(0, 0, qRgba(0, 0, 0, 0));
    for (const int type : {1, 2}) {
        const auto picture = loaded(iconFile({{small}, {large}, {small}}, type));
        ASSERT_TRUE(picture) << type;
        EXPECT_EQ(picture->type(), platform::PictureType::Bitmap);
        EXPECT_EQ(picture->width(), 32);
        EXPECT_EQ(picture->height(), 32);
        EXPECT_EQ(qAlpha(picture->image().pixel(0, 0)), 0);
        EXPECT_EQ(picture->image().pixel(5, 5), qRgb(0, 0, 255));
    }
}

TEST(LoadPicture, ReadsPngImagesInsideIcons)
{
    QImage image(40, 30, QImage::Format_ARGB32);
    image.fill(qRgba(10, 20, 30, 255));
    const auto picture = loaded(iconFile({{image, test::IconCoding::Png}}));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 40);
    EXPECT_EQ(picture->height(), 30);
    EXPECT_EQ(picture->image().pixel(39, 29), qRgb(10, 20, 30));
}

TEST(LoadPicture, TakesTheNextImageOfADamagedIcon)
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(qRgba(1, 2, 3, 255));
    QImage large(48, 48, QImage::Format_ARGB32);
    large.fill(qRgba(9, 9, 9, 255));
    QByteArray bytes = iconFile({{image}, {large, test::IconCoding::Png}});
    bytes.chop(40);
    const auto picture = loaded(bytes);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 16);
}

TEST(LoadPicture, GoesByContentAndNotByName)
{
    EXPECT_TRUE(loaded(bmpFile(numbered(4, 4)), "picture.jpg"));
    EXPECT_TRUE(loaded(jpegFile(quarters(16, 16)), "picture.bmp"));
    EXPECT_TRUE(loaded(gifFile(1, 1, {{{1}, -1}}), "picture.ico"));
}

TEST(LoadPicture, RefusesOtherFormatsUnderAnyName)
{
    for (const char* format : {"png", "ppm", "xbm", "xpm"}) {
        const QByteArray bytes = encodedBy(format);
        for (const char* name : {"a.bmp", "a.jpg", "a.gif", "a.ico", "a.png", "a.wmf"}) {
            EXPECT_FALSE(loaded(bytes, name)) << format << " as " << name;
        }
    }
    EXPECT_FALSE(loaded("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", "a.svg"));
    // The heads of TIFF, and of uncompressed TGA, which looks much like a cursor's.
    EXPECT_FALSE(loaded(QByteArray::fromHex("49492a0008000000"), "a.tif"));
    EXPECT_FALSE(
        loaded(QByteArray::fromHex("000002000000000000000000020002001800") + QByteArray(12, 'x'),
               "a.tga"));
}

TEST(LoadPicture, GivesNothingForFilesThatAreNotThere)
{
    const TempTree tree({{"folder/", ""}, {"empty.bmp", ""}});
    EXPECT_FALSE(loadPicture(tree.path("missing.bmp")));
    EXPECT_FALSE(loadPicture(tree.path("folder")));
    EXPECT_FALSE(loadPicture(tree.path("empty.bmp")));
    EXPECT_FALSE(loadPicture(QString()));
    EXPECT_FALSE(loadPicture("/dev/zero"));
}

TEST(LoadPicture, GivesNothingForFilesThatEndInTheirHeader)
{
    for (const QByteArray& bytes :
         {bmpFile(numbered(9, 9)).left(40), jpegFile(quarters(16, 16)).left(60),
          gifFile(2, 1, {{{0, 1}, -1}}).left(16),
          iconFile({{QImage(8, 8, QImage::Format_ARGB32)}}).left(30)}) {
        EXPECT_FALSE(loaded(bytes));
        EXPECT_FALSE(loaded(bytes.left(4)));
    }
}

TEST(LoadPicture, GivesNothingForAJpegWithoutPixels)
{
    const QByteArray bytes = jpegFile(quarters(64, 48));
    const qsizetype scan = bytes.indexOf(QByteArray::fromHex("ffda"));
    ASSERT_GT(scan, 0);
    const qsizetype pixels = scan + 2 + uchar(bytes[scan + 3]);
    EXPECT_FALSE(loaded(bytes.left(pixels)));
}

TEST(LoadPicture, ShowsTheBeginningOfATruncatedJpeg)
{
    const QImage image = quarters(64, 256);
    const QByteArray bytes = jpegFile(image);
    const auto picture = loaded(bytes.left(bytes.size() * 3 / 4));
    ASSERT_TRUE(picture);
    ASSERT_EQ(picture->image().size(), image.size());
    expectLike(picture->image().copy(0, 0, 64, 32), image.copy(0, 0, 64, 32), 20);
}

TEST(LoadPicture, RefusesSizesBeyondItsLimit)
{
    QByteArray bmp = bmpFile(numbered(4, 4));
    bmp[18] = bmp[22] = char(0xFF);
    bmp[19] = bmp[23] = char(0xFF);
    EXPECT_FALSE(loaded(bmp));

    QByteArray jpeg = jpegFile(quarters(16, 16));
    const qsizetype frame = jpeg.indexOf(QByteArray::fromHex("ffc0"));
    ASSERT_GT(frame, 0);
    for (qsizetype i = 5; i < 9; ++i) {
        jpeg[frame + i] = char(0xFF);
    }
    EXPECT_FALSE(loaded(jpeg));

    QByteArray gif = gifFile(2, 2, {{{0, 1, 2, 3}, -1}});
    for (qsizetype i = 6; i < 10; ++i) {
        gif[i] = char(0xFF);
    }
    EXPECT_FALSE(loaded(gif));

    QImage square(8, 8, QImage::Format_ARGB32);
    square.fill(0);
    QByteArray png = iconFile({{square, test::IconCoding::Png}});
    const qsizetype size = png.indexOf("IHDR") + 4;
    png[size + 2] = png[size + 6] = char(0x7F);
    EXPECT_FALSE(loaded(png));
}

TEST(LoadPicture, RefusesShortFilesThatClaimManyPixels)
{
    QByteArray jpeg = jpegFile(quarters(16, 16));
    const qsizetype frame = jpeg.indexOf(QByteArray::fromHex("ffc0"));
    ASSERT_GT(frame, 0);
    jpeg[frame + 5] = jpeg[frame + 7] = char(0x20); // 8192 and some
    EXPECT_FALSE(loaded(jpeg));

    QByteArray gif = gifFile(2, 2, {{{0, 1, 2, 3}, -1}});
    gif[7] = gif[9] = char(0x20);
    EXPECT_FALSE(loaded(gif));
}

TEST(LoadPicture, GivesUpOnAJpegOfEmptyScans)
{
    QByteArray bytes = jpegFile(quarters(64, 64), {.progressive = true});
    const qsizetype first = bytes.indexOf(QByteArray::fromHex("ffda"));
    const qsizetype second = bytes.indexOf(QByteArray::fromHex("ffda"), first + 2);
    ASSERT_GT(second, first);
    const QByteArray scan = bytes.mid(first, second - first);
    bytes.insert(second, scan.repeated(1000));
    EXPECT_FALSE(loaded(bytes));
}

TEST(LoadPicture, LoadsFilesWhoseNamesAreNoText)
{
    const TempTree tree({{"a\xFF\xFE.bmp", bmpFile(numbered(3, 3)).toStdString()}});
    EXPECT_TRUE(loadPicture(tree.path("a\xFF\xFE.bmp")));
}

TEST(LoadTilePicture, DecodesAJpegAtTheSmallestFractionThatCovers)
{
    const TempTree tree({{"a.jpg", jpegFile(quarters(800, 600)).toStdString()}});
    struct Case {
        int box;
        QSize expected;
    };
    for (const Case& c : {Case{100, {100, 75}}, Case{101, {200, 150}}, Case{60, {100, 75}},
                          Case{250, {300, 225}}, Case{701, {800, 600}}, Case{3000, {800, 600}}}) {
        const auto tile = loadTilePicture(tree.path("a.jpg"), QSize(c.box, c.box), fitInto);
        ASSERT_TRUE(tile);
        EXPECT_EQ(tile->naturalSize, QSize(800, 600));
        EXPECT_EQ(tile->picture.image().size(), c.expected) << c.box;
        EXPECT_EQ(tile->picture.image().pixel(2, 2), tile->picture.image().pixel(4, 4));
    }
}

TEST(LoadTilePicture, TurnsTheTileAsTheWholePicture)
{
    for (int orientation = 1; orientation <= 8; ++orientation) {
        JpegOptions options;
        options.orientation = orientation;
        const TempTree tree({{"a.jpg", jpegFile(quarters(640, 320), options).toStdString()}});
        const auto whole = loadPicture(tree.path("a.jpg"));
        const auto tile = loadTilePicture(tree.path("a.jpg"), QSize(40, 40), fitInto);
        ASSERT_TRUE(whole && tile);
        EXPECT_EQ(tile->naturalSize, whole->image().size());
        EXPECT_EQ(tile->picture.image().size() * 8, whole->image().size());
        for (const int place : {1, 3}) {
            const QSize small = tile->picture.image().size() * place / 4;
            const QSize large = whole->image().size() * place / 4;
            expectLike(tile->picture.image().copy(small.width(), tile->picture.height() / 4, 1, 1),
                       whole->image().copy(large.width(), whole->height() / 4, 1, 1), 12);
        }
    }
}

TEST(LoadTilePicture, GivesOtherFormatsWhole)
{
    const QImage image = numbered(60, 50);
    const TempTree tree({{"a.bmp", bmpFile(image).toStdString()}});
    const auto tile = loadTilePicture(tree.path("a.bmp"), QSize(10, 10), fitInto);
    ASSERT_TRUE(tile);
    EXPECT_EQ(tile->naturalSize, QSize(60, 50));
    expectPixels(tile->picture.image(), image);
}

TEST(LoadTilePicture, CopesWithBoxesOfNothing)
{
    const TempTree tree({{"a.jpg", jpegFile(quarters(64, 64)).toStdString()}});
    const auto none = [](QSize, QSize) { return QSize(); };
    const auto tile = loadTilePicture(tree.path("a.jpg"), QSize(), none);
    ASSERT_TRUE(tile);
    EXPECT_EQ(tile->picture.image().size(), QSize(8, 8));
}

TEST(LoadTilePicture, GivesNothingWhereThePictureLoaderDoes)
{
    const TempTree tree({{"a.jpg", "no picture"}});
    EXPECT_FALSE(loadTilePicture(tree.path("a.jpg"), QSize(10, 10), fitInto));
    EXPECT_FALSE(loadTilePicture(tree.path("missing.jpg"), QSize(10, 10), fitInto));
}
