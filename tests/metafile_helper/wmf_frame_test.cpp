#include "metafile_helper/wmf_frame.h"

#include "metafile_helper/metafile_files.h"

#include <gtest/gtest.h>

using metafile_helper::wmfFrame;
using test::WmfFile;

namespace {

std::optional<metafile_helper::WmfFrame> frameOf(const QByteArray& file)
{
    return wmfFrame(std::as_bytes(std::span(file.constData(), std::size_t(file.size()))));
}

} // namespace

TEST(WmfFrame, IsThePlaceableAreaInsideTheWindow)
{
    const auto frame = frameOf(WmfFile({QPoint(100, 200), QPoint(300, 300)}, 96).bytes());
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->size, QSize(200, 100));
    EXPECT_EQ(frame->area, QRectF(0, 0, 1024, 1024));
}

TEST(WmfFrame, IsTheWindowWithoutAPlaceableHead)
{
    const auto frame = frameOf(WmfFile({QPoint(100, 200), QPoint(300, 300)}, 96).bytes(false));
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->size, QSize(200, 100));
    EXPECT_EQ(frame->area, QRectF(0, 0, 1024, 1024));
}

TEST(WmfFrame, IsNothingForEmptyWindowsAndFiles)
{
    EXPECT_FALSE(frameOf(WmfFile({QPoint(5, 5), QPoint(5, 9)}, 96).bytes(false)));
    EXPECT_FALSE(frameOf({}));
}
