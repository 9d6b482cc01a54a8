#include "editing/filter_numbers.h"

#include <map>
#include <set>

#include <gtest/gtest.h>

using editing::FilterMenu;
using editing::filterNumber;

namespace {

void expectNumbers(FilterMenu menu, const std::map<int, int>& numbers)
{
    for (int index = -1; index < 25; ++index) {
        const auto number = filterNumber(menu, index);
        const auto expected = numbers.find(index);
        ASSERT_EQ(number.has_value(), expected != numbers.end()) << index;
        if (number) {
            EXPECT_EQ(*number, expected->second) << index;
        }
    }
}

} // namespace

TEST(FilterNumbers, KnowsEveryEntryOfTheFilterMenu)
{
    expectNumbers(FilterMenu::Filters, {{0, 0},
                                        {1, 1},
                                        {3, 2},
                                        {4, 3},
                                        {5, 4},
                                        {6, 5},
                                        {7, 6},
                                        {8, 7},
                                        {9, 8},
                                        {11, 16},
                                        {12, 15},
                                        {13, 17},
                                        {14, 18},
                                        {15, 19},
                                        {16, 20},
                                        {17, 21},
                                        {19, 19}});
}

TEST(FilterNumbers, KnowsEveryEntryOfTheColourMenu)
{
    expectNumbers(FilterMenu::Colours, {{0, 9}, {2, 10}, {3, 11}, {5, 12}, {6, 13}});
}

TEST(FilterNumbers, HasNoEntryTwiceAndLeaves14Out)
{
    std::set<std::pair<FilterMenu, int>> entries;
    for (const editing::FilterNumber& row : editing::filterNumbers()) {
        EXPECT_TRUE(entries.emplace(row.menu, row.index).second) << row.index;
        EXPECT_NE(row.number, 14);
    }
    EXPECT_EQ(entries.size(), 22U);
}
