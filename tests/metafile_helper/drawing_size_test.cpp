#include "metafile_helper/drawing_size.h"

#include "metafile_helper/metafile_files.h"

#include <gtest/gtest.h>

using metafile_helper::drawnSize;
using metafile_helper::emfSize;
using metafile_helper::placeableSize;
using test::EmfFile;
using test::WmfFile;

namespace {

std::span<const std::byte> bytesOf(const QByteArray& file)
{
    return std::as_bytes(std::span(file.constData(), std::size_t(file.size())));
}

} // namespace

TEST(DrawingSize, IsThatOfThePlaceableHeadAt96DotsAnInch)
{
    const QByteArray file = WmfFile({QPoint(100, 200), QPoint(2100, 1200)}, 1000).bytes();
    EXPECT_EQ(placeableSize(bytesOf(file)), QSize(192, 96));
}

TEST(DrawingSize, IsNothingWithoutAUsablePlaceableHead)
{
    const QRect bounds(QPoint(0, 0), QPoint(100, 100));
    EXPECT_FALSE(placeableSize(bytesOf(WmfFile(bounds, 0).bytes())));
    EXPECT_FALSE(placeableSize(bytesOf(WmfFile(bounds, 96).bytes(false))));
    EXPECT_FALSE(placeableSize(bytesOf(WmfFile({QPoint(5, 5), QPoint(5, 9)}, 96).bytes())));
    EXPECT_FALSE(placeableSize({}));
}

TEST(DrawingSize, IsThatOfTheFrame)
{
    EXPECT_EQ(emfSize(bytesOf(EmfFile({120, 80}).bytes())), QSize(120, 80));
}

TEST(DrawingSize, IsThatOfTheBoundsWithoutAFrame)
{
    QByteArray file = EmfFile({120, 80}).bytes();
    for (int i = 24; i < 40; ++i) {
        file[i] = 0;
    }
    EXPECT_EQ(emfSize(bytesOf(file)), QSize(120, 80));
    for (int i = 8; i < 24; ++i) {
        file[i] = char(0x80);
    }
    EXPECT_EQ(emfSize(bytesOf(file)), QSize(1, 1));
}

TEST(DrawingSize, StaysBetweenOnePixelAndTheLongestSide)
{
    EXPECT_EQ(drawnSize(8192, 4096), QSize(4096, 2048));
    EXPECT_EQ(drawnSize(1e12, 1), QSize(4096, 1));
    EXPECT_EQ(drawnSize(0.2, 10.4), QSize(1, 10));
}
