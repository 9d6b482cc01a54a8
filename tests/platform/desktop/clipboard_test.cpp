#include "platform/desktop/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <gtest/gtest.h>

using platform::Picture;

namespace {

Picture picture(int width, int height, QColor colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return Picture(image);
}

} // namespace

TEST(Clipboard, HoldsAPictureOverWhite)
{
    platform::setClipboardPicture(picture(3, 2, QColor(0, 0, 0, 0)));
    const auto found = platform::clipboardPicture();
    ASSERT_TRUE(found);
    EXPECT_EQ(found->width(), 3);
    EXPECT_EQ(found->height(), 2);
    EXPECT_EQ(found->type(), platform::PictureType::Bitmap);
    EXPECT_EQ(found->image().pixelColor(1, 1), QColor(Qt::white));
}

TEST(Clipboard, KeepsColours)
{
    platform::setClipboardPicture(picture(1, 1, QColor(82, 109, 220)));
    EXPECT_EQ(platform::clipboardPicture()->image().pixelColor(0, 0), QColor(82, 109, 220));
}

TEST(Clipboard, IsEmptiedByNothing)
{
    platform::setClipboardPicture(picture(1, 1, Qt::red));
    platform::setClipboardPicture(Picture());
    EXPECT_FALSE(platform::clipboardPicture());
    platform::setClipboardPicture(picture(1, 1, Qt::red));
    platform::clearClipboard();
    EXPECT_FALSE(platform::clipboardPicture());
}

TEST(Clipboard, HoldsTextInsteadOfAPicture)
{
    platform::setClipboardPicture(picture(1, 1, Qt::red));
    platform::setClipboardText("#526DDC");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "#526DDC");
    EXPECT_EQ(platform::clipboardText(), "#526DDC");
    EXPECT_FALSE(platform::clipboardPicture());
}
