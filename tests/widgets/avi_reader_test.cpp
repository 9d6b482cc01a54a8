#include "widgets/avi_reader.h"

#include "avi_bytes.h"

#include <gtest/gtest.h>

using avi_bytes::Movie;

namespace {

std::optional<widgets::AviClip> read(const QByteArray& bytes)
{
    return widgets::readAvi(std::as_bytes(std::span(bytes.constData(), bytes.size())));
}

Movie indexed(quint32 compression, const QByteArrayList& frames)
{
    Movie movie;
    movie.width = 4;
    movie.height = 2;
    movie.bits = 8;
    movie.compression = compression;
    movie.palette = QByteArray::fromHex("000000000000ff0000ff0000ff000000"); // black red green blue
    movie.paletteEntries = 4;
    movie.frames = frames;
    return movie;
}

// One letter for each pixel, row by row.
QString lettersOf(const QImage& image)
{
    QString letters;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            letters += colour == Qt::red     ? 'r'
                       : colour == Qt::green ? 'g'
                       : colour == Qt::blue  ? 'b'
                       : colour == Qt::black ? '.'
                                             : '?';
        }
        letters += '/';
    }
    return letters;
}

} // namespace

TEST(AviReader, ReadsTrueColourFramesFromTheBottomUp)
{
    const auto clip = read(avi_bytes::file(avi_bytes::twoFrames()));
    ASSERT_TRUE(clip);
    ASSERT_EQ(clip->frames.size(), 2U);
    EXPECT_EQ(lettersOf(clip->frames[0]), "bb/bb/");
    EXPECT_EQ(lettersOf(clip->frames[1]), "rb/bb/");
    EXPECT_EQ(clip->frameMilliseconds, 50);
}

TEST(AviReader, ReadsFramesFromTheTopDown)
{
    Movie movie = avi_bytes::twoFrames();
    movie.height = -2;
    const auto clip = read(avi_bytes::file(movie));
    ASSERT_TRUE(clip);
    EXPECT_EQ(lettersOf(clip->frames[1]), "bb/rb/");
}

TEST(AviReader, ReadsIndexedFrames)
{
    const auto clip = read(avi_bytes::file(indexed(0, {QByteArray::fromHex("0102030001020301")})));
    ASSERT_TRUE(clip);
    EXPECT_EQ(lettersOf(clip->frames[0]), "rgbr/rgb./");
}

TEST(AviReader, ReadsRunLengthCodedFrames)
{
    // Bottom row: three red, one green. Top row: four pixels one by one.
    const QByteArray frame = QByteArray::fromHex("0301"
                                                 "0102"
                                                 "0000"
                                                 "000401020301"
                                                 "0001");
    const auto clip = read(avi_bytes::file(indexed(1, {frame})));
    ASSERT_TRUE(clip);
    EXPECT_EQ(lettersOf(clip->frames[0]), "rgbr/rrrg/");
}

TEST(AviReader, DrawsRunsOverTheFrameBefore)
{
    const QByteArray all = QByteArray::fromHex("04010000"
                                               "04010001");
    // Skips one pixel and one row, then one blue pixel.
    const QByteArray one = QByteArray::fromHex("00020101"
                                               "01030001");
    const auto clip = read(avi_bytes::file(indexed(1, {all, one, QByteArray()})));
    ASSERT_TRUE(clip);
    ASSERT_EQ(clip->frames.size(), 3U);
    EXPECT_EQ(lettersOf(clip->frames[1]), "rbrr/rrrr/");
    EXPECT_EQ(lettersOf(clip->frames[2]), "rbrr/rrrr/");
}

TEST(AviReader, KeepsRunsInsideThePicture)
{
    const QByteArray wide = QByteArray::fromHex("ff01"
                                                "00020909"
                                                "ff02"
                                                "00ff03");
    const auto clip = read(avi_bytes::file(indexed(1, {wide})));
    ASSERT_TRUE(clip);
    EXPECT_EQ(lettersOf(clip->frames[0]), "..../rrrr/");
}

TEST(AviReader, StopsAFrameThatIsTooShort)
{
    const auto clip = read(avi_bytes::file(indexed(0, {QByteArray::fromHex("010203010102")})));
    ASSERT_TRUE(clip);
    EXPECT_EQ(lettersOf(clip->frames[0]), "..../rgbr/");
}

TEST(AviReader, FindsFramesInRecordsAndByEitherName)
{
    Movie movie = avi_bytes::twoFrames();
    movie.frameName = "00dc";
    EXPECT_TRUE(read(avi_bytes::file(movie)));
    movie.frameName = "01db";
    EXPECT_FALSE(read(avi_bytes::file(movie)));
    movie.frameName = "LIST";
    movie.frames = {"rec " + avi_bytes::chunk("00db", movie.frames.front())};
    EXPECT_TRUE(read(avi_bytes::file(movie)));
}

TEST(AviReader, RefusesWhatItCannotShow)
{
    EXPECT_FALSE(read(""));
    EXPECT_FALSE(read("RIFF"));
    EXPECT_FALSE(read(avi_bytes::chunk("RIFF", "WAVE")));
    Movie movie = avi_bytes::twoFrames();
    movie.frames.clear();
    EXPECT_FALSE(read(avi_bytes::file(movie)));
    movie = avi_bytes::twoFrames();
    movie.bits = 16;
    EXPECT_FALSE(read(avi_bytes::file(movie)));
    movie = avi_bytes::twoFrames();
    movie.compression = 0x34363248;
    EXPECT_FALSE(read(avi_bytes::file(movie)));
    for (const qint32 side : {0, -1, 5000, std::numeric_limits<qint32>::min()}) {
        movie = avi_bytes::twoFrames();
        movie.width = side;
        EXPECT_FALSE(read(avi_bytes::file(movie)));
    }
    for (const qint32 side : {0, 5000, std::numeric_limits<qint32>::min()}) {
        movie = avi_bytes::twoFrames();
        movie.height = side;
        EXPECT_FALSE(read(avi_bytes::file(movie)));
    }
}

TEST(AviReader, RefusesClipsThatWouldFillTheMemory)
{
    Movie movie = avi_bytes::twoFrames();
    movie.width = 4096;
    movie.height = 4096;
    EXPECT_FALSE(read(avi_bytes::file(movie)));
    movie = avi_bytes::twoFrames();
    for (int i = 0; i < 10'001; ++i) {
        movie.frames.append(QByteArray());
    }
    EXPECT_FALSE(read(avi_bytes::file(movie)));
}

TEST(AviReader, SurvivesEveryCutAndEveryChangedByte)
{
    const QByteArray whole = avi_bytes::file(
        indexed(1, {QByteArray::fromHex("03010102000000040102030100"), QByteArray()}));
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const auto clip = read(whole.left(length));
        EXPECT_TRUE(!clip || !clip->frames.empty());
    }
    for (qsizetype at = 0; at < whole.size(); ++at) {
        for (const int value : {0x00, 0x7F, 0x80, 0xFF}) {
            QByteArray changed = whole;
            changed[at] = static_cast<char>(value);
            const auto clip = read(changed);
            EXPECT_TRUE(!clip || !clip->frames.empty());
        }
    }
}
