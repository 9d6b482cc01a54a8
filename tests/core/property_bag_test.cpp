#include "core/property_bag.h"

#include <gtest/gtest.h>

using core::assign;
using core::PropertyBag;

namespace {

template<typename Value> Value assigned(const QVariant& value, Value field)
{
    assign(value, field);
    return field;
}

} // namespace

TEST(PropertyBag, KeepsWhatDiffersFromItsDefault)
{
    PropertyBag bag;
    bag.write("Size", 5, 5);
    EXPECT_TRUE(bag.values().empty());
    bag.write("Size", 6, 5);
    EXPECT_EQ(bag.read("Size", 5), 6);
    bag.write("Size", 5, 5);
    EXPECT_TRUE(bag.values().empty());
    EXPECT_EQ(bag.read("Size", 9), 9);
}

TEST(PropertyBag, AssignsWhatFits)
{
    EXPECT_EQ(assigned<std::int16_t>(-32768, 1), -32768);
    EXPECT_EQ(assigned<std::int16_t>(32768, 1), 1);
    EXPECT_EQ(assigned<std::int32_t>("12", 1), 12);
    EXPECT_EQ(assigned<std::int32_t>("twelve", 1), 1);
    EXPECT_EQ(assigned<base::Colour>(-1, 1U), 0xFFFFFFFFU);
    EXPECT_EQ(assigned<base::Colour>(qint64(1) << 32, 1U), 1U);
    EXPECT_EQ(assigned("False", true), false);
    EXPECT_EQ(assigned("", true), true);
    EXPECT_EQ(assigned(7, QString("a")), "7");
    EXPECT_EQ(core::kept(base::Colour(0x80000001)), std::int32_t(-2147483647));
}
