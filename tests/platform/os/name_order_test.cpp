#include "platform/os/name_order.h"

#include "platform/os/paths.h"

#include <gtest/gtest.h>

using platform::NameSorter;

namespace {

const std::vector<std::string> kNames = {"b",
                                         "A",
                                         "a",
                                         "a b",
                                         "a.b",
                                         "aB",
                                         "Ab",
                                         "\xC3\x84x",
                                         "\xC3\xA4x",
                                         "z",
                                         "\xEF\xBC\xA1",
                                         "\xF0\x90\x90\x80",
                                         "\xF0\x90\x90\xA8",
                                         "bad\xFF",
                                         "bad\x80",
                                         "bad",
                                         "\n",
                                         " ",
                                         "_",
                                         std::string(255, 'M')};

std::vector<QString> sorted(const std::vector<std::string>& names)
{
    NameSorter sorter;
    for (const std::string& name : names) {
        sorter.add(name);
    }
    std::vector<QString> result;
    for (const std::uint32_t place : sorter.order()) {
        result.push_back(platform::fromNative(names[place]));
    }
    return result;
}

} // namespace

TEST(NameSorter, OrdersAsTheOtherListsDo)
{
    std::vector<platform::FoldedName> folded;
    for (const std::string& name : kNames) {
        folded.emplace_back(platform::fromNative(name));
    }
    EXPECT_EQ(sorted(kNames), platform::inOrder(folded));
}

TEST(NameSorter, PutsCapitalsFirstWhereNothingElseDiffers)
{
    EXPECT_EQ(sorted({"abc", "ab", "ABC"}), std::vector<QString>({"ab", "ABC", "abc"}));
}
