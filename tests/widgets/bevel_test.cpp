#include "widgets/bevel.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

QColor shownAt(QWidget& widget, int x, int y)
{
    return widget.grab().toImage().pixelColor(x, y);
}

const QColor kDark(0x80, 0x80, 0x80);

} // namespace

TEST(Bevel, PaintsSunkAndRaisedStrips)
{
    Bevel bevel;
    bevel.resize(20, 10);
    bevel.setBevelSytle(0);
    EXPECT_EQ(shownAt(bevel, 5, 0), kDark);
    EXPECT_EQ(shownAt(bevel, 0, 5), kDark);
    EXPECT_EQ(shownAt(bevel, 5, 9), QColor(Qt::white));
    EXPECT_EQ(shownAt(bevel, 19, 5), QColor(Qt::white));

    bevel.setBevelSytle(2);
    EXPECT_EQ(shownAt(bevel, 5, 0), QColor(Qt::white));
    EXPECT_EQ(shownAt(bevel, 0, 5), QColor(Qt::white));
    EXPECT_EQ(shownAt(bevel, 5, 9), kDark);
    EXPECT_EQ(shownAt(bevel, 19, 5), kDark);
}

TEST(Bevel, LeavesItsStripsForOtherNumbers)
{
    Bevel bevel;
    bevel.setBevelSytle(2);
    for (const int style : {1, 3, -1}) {
        bevel.setBevelSytle(style);
        EXPECT_EQ(bevel.BevelSytle(), 2);
        EXPECT_EQ(bevel.stripColour(0), 0xFFFFFFU);
        EXPECT_EQ(bevel.stripColour(1), 0xFFFFFFU);
        EXPECT_EQ(bevel.stripColour(2), 0x808080U);
        EXPECT_EQ(bevel.stripColour(3), 0x808080U);
    }
}

TEST(Bevel, LaysItsStripsAlongTheEdges)
{
    Bevel bevel;
    bevel.resize(60, 40);
    bevel.show();
    EXPECT_EQ(bevel.findChild<QWidget*>("Picture1")->geometry(), QRect(0, 0, 60, 1));
    EXPECT_EQ(bevel.findChild<QWidget*>("Picture2")->geometry(), QRect(0, 0, 1, 40));
    EXPECT_EQ(bevel.findChild<QWidget*>("Picture3")->geometry(), QRect(0, 39, 60, 1));
    EXPECT_EQ(bevel.findChild<QWidget*>("Picture4")->geometry(), QRect(59, 0, 1, 40));
    bevel.resize(30, 20);
    EXPECT_EQ(bevel.findChild<QWidget*>("Picture3")->geometry(), QRect(0, 19, 30, 1));
    EXPECT_EQ(bevel.findChild<QWidget*>("Picture4")->geometry(), QRect(29, 0, 1, 20));
}
