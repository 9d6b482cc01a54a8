#include "base/web_colour.h"

#include <gtest/gtest.h>

TEST(WebColour, HasTwoDigitsForEachOfRedGreenAndBlue)
{
    EXPECT_EQ(base::webColour(base::rgb(255, 0, 0)), "FF0000");
    EXPECT_EQ(base::webColour(base::rgb(10, 0, 255)), "0A00FF");
    EXPECT_EQ(base::webColour(base::rgb(0, 171, 5)), "00AB05");
}
