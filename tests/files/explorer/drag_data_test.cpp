#include "files/explorer/drag_data.h"

#include <QUrl>
#include <gtest/gtest.h>

using files::DragData;

TEST(DragData, NumbersItsFormats)
{
    EXPECT_EQ(files::formatNumber("text/plain"), 1);
    EXPECT_EQ(files::formatNumber("application/x-qt-image"), 2);
    EXPECT_EQ(files::formatNumber("text/uri-list"), 15);
    EXPECT_EQ(files::formatNumber("text/html"), 0);
}

TEST(DragData, AsksForWhatWasPromisedWhenItIsWanted)
{
    QList<qint16> asked;
    DragData data([&](DragData& promised, qint16 format) {
        asked.append(format);
        promised.setText("late");
    });
    data.setData("text/plain", {});
    EXPECT_TRUE(data.hasFormat("text/plain"));
    EXPECT_EQ(asked, QList<qint16>());
    EXPECT_EQ(data.text(), "late");
    EXPECT_EQ(data.text(), "late");
    EXPECT_EQ(asked, QList<qint16>({1}));
}

TEST(DragData, AsksForNothingThatIsThereOrWasNeverPromised)
{
    int asked = 0;
    DragData data([&](DragData&, qint16) { ++asked; });
    data.setUrls({QUrl::fromLocalFile("/a b")});
    EXPECT_EQ(data.urls(), QList<QUrl>({QUrl::fromLocalFile("/a b")}));
    EXPECT_EQ(data.data("text/uri-list"), "file:///a%20b\r\n");
    EXPECT_FALSE(data.hasImage());
    EXPECT_EQ(data.data("text/html"), "");
    EXPECT_EQ(asked, 0);
}
