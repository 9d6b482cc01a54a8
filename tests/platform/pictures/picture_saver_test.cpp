#include "platform/pictures/picture_saver.h"

#include "platform/pictures/test_images.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::Picture;
using platform::savePicture;
using test::numbered;

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(SavePicture, WritesRowsOfThreeBytesFromTheBottomUp)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.bmp");
    const QImage image = test::imageOf(
        1, 2, [](int, int y) { return y ? qRgb(0x11, 0x22, 0x33) : qRgb(0xAA, 0xBB, 0xCC); });
    ASSERT_TRUE(savePicture(Picture(image), path));
    const QByteArray expected = QByteArray::fromHex("424d3e00000000000000360000002800000001000000"
                                                    "02000000010018000000000008000000000000000000"
                                                    "00000000000000000000"
                                                    "33221100ccbbaa00");
    EXPECT_EQ(bytesOf(path).toHex(), expected.toHex());
}

TEST(SavePicture, IsReadBackAlike)
{
    const QTemporaryDir folder;
    for (const int width : {1, 2, 3, 4, 5, 250}) {
        const QString path = folder.filePath("b.bmp");
        const QImage image = numbered(width, 190);
        ASSERT_TRUE(savePicture(Picture(image), path));
        test::expectPixels(QImage(path, "bmp"), image);
    }
}

TEST(SavePicture, WritesPicturesLargerThanItsBuffer)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("c.bmp");
    const QImage image = test::imageOf(
        1500, 700, [](int x, int y) { return qRgb(x & 255, y & 255, (x * y) & 255); });
    ASSERT_TRUE(savePicture(Picture(image), path));
    EXPECT_EQ(QImage(path, "bmp").convertToFormat(QImage::Format_RGB32), image);
}

TEST(SavePicture, PutsTransparentPicturesOverWhite)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("d.bmp");
    QImage icon(1, 1, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    ASSERT_TRUE(savePicture(Picture(icon, platform::PictureType::Icon), path));
    EXPECT_EQ(QImage(path, "bmp").pixel(0, 0), qRgb(255, 255, 255));
}

TEST(SavePicture, ReplacesWhatIsThereAndLeavesNothingElse)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("e.bmp");
    ASSERT_TRUE(savePicture(Picture(numbered(9, 9)), path));
    ASSERT_TRUE(savePicture(Picture(numbered(2, 2)), path));
    EXPECT_EQ(QImage(path, "bmp").size(), QSize(2, 2));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("e.bmp"));
}

TEST(SavePicture, FailsWithoutPictureOrFolder)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(savePicture(Picture(), folder.filePath("f.bmp")));
    EXPECT_FALSE(savePicture(Picture(numbered(2, 2)), folder.filePath("none/f.bmp")));
    EXPECT_FALSE(savePicture(Picture(numbered(2, 2)), folder.path()));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}
