#include "editing/filter_numbers.h"

#include <algorithm>
#include <array>

namespace editing {

namespace {

using enum FilterMenu;

// The editor's numbers and the menus' order grew apart: Pixelaze and Diffuse are crossed, More...
// shares the number of Noise, and 14 is not used.
constexpr std::array kFilterNumbers{
    FilterNumber{Filters, 0, 0},   FilterNumber{Filters, 1, 1},   FilterNumber{Filters, 3, 2},
    FilterNumber{Filters, 4, 3},   FilterNumber{Filters, 5, 4},   FilterNumber{Filters, 6, 5},
    FilterNumber{Filters, 7, 6},   FilterNumber{Filters, 8, 7},   FilterNumber{Filters, 9, 8},
    FilterNumber{Colours, 0, 9},   FilterNumber{Colours, 2, 10},  FilterNumber{Colours, 3, 11},
    FilterNumber{Colours, 5, 12},  FilterNumber{Colours, 6, 13},  FilterNumber{Filters, 12, 15},
    FilterNumber{Filters, 11, 16}, FilterNumber{Filters, 13, 17}, FilterNumber{Filters, 14, 18},
    FilterNumber{Filters, 15, 19}, FilterNumber{Filters, 19, 19}, FilterNumber{Filters, 16, 20},
    FilterNumber{Filters, 17, 21}};

} // namespace

std::span<const FilterNumber> filterNumbers()
{
    return kFilterNumbers;
}

std::optional<int> filterNumber(FilterMenu menu, int index)
{
    const auto row =
        std::find_if(kFilterNumbers.begin(), kFilterNumbers.end(), [&](const FilterNumber& entry) {
            return entry.menu == menu && entry.index == index;
        });
    if (row == kFilterNumbers.end()) {
        return std::nullopt;
    }
    return row->number;
}

} // namespace editing
