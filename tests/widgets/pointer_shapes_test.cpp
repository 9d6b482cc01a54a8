#include "widgets/pointer_shapes.h"

#include <QPixmap>
#include <gtest/gtest.h>

using widgets::pointerShape;

TEST(PointerShapes, HaveTheirClassicNumbers)
{
    EXPECT_EQ(pointerShape(1, {})->shape(), Qt::ArrowCursor);
    EXPECT_EQ(pointerShape(2, {})->shape(), Qt::CrossCursor);
    EXPECT_EQ(pointerShape(11, {})->shape(), Qt::WaitCursor);
    EXPECT_EQ(pointerShape(15, {})->shape(), Qt::SizeAllCursor);
}

TEST(PointerShapes, LeaveThePointerAloneForOtherNumbers)
{
    for (const int number : {-1, 0, 16, 98}) {
        EXPECT_EQ(pointerShape(number, {}), std::nullopt) << number;
    }
}

TEST(PointerShapes, TakeThePictureForTheirLastNumber)
{
    QImage picture(8, 8, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    EXPECT_EQ(pointerShape(99, {}), std::nullopt);
    EXPECT_EQ(pointerShape(99, picture)->pixmap().toImage().pixelColor(4, 4), QColor(Qt::red));
}
