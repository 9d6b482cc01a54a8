#include "widgets/colour_conversion.h"

#include <gtest/gtest.h>

TEST(ColourConversion, KeepsRedInTheLowestByte)
{
    EXPECT_EQ(widgets::toQColor(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(widgets::toQColor(0xD6BEB5), QColor(0xB5, 0xBE, 0xD6));
    EXPECT_EQ(widgets::fromQColor(QColor(0x12, 0x34, 0x56)), 0x563412U);
}

TEST(ColourConversion, TranslatesSystemColours)
{
    EXPECT_EQ(widgets::toQColor(base::systemColour(15)), QColor(0xC0, 0xC0, 0xC0));
    EXPECT_EQ(widgets::toQColor(base::systemColour(13)), QColor(0, 0, 0x80));
}

TEST(ColourConversion, PicksTheTextColourThatReadsBetter)
{
    EXPECT_EQ(widgets::legibleOn(Qt::white), QColor(Qt::black));
    EXPECT_EQ(widgets::legibleOn(Qt::black), QColor(Qt::white));
    EXPECT_EQ(widgets::legibleOn(Qt::blue), QColor(Qt::white));
    EXPECT_EQ(widgets::legibleOn(Qt::yellow), QColor(Qt::black));
}
