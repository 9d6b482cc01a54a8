#pragma once

#include <optional>
#include <span>

namespace editing {

enum class FilterMenu { Filters, Colours }; // optFilter, optColor

// By what number the separate editor knows the filter of a menu entry.
struct FilterNumber {
    FilterMenu menu;
    int index;
    int number;
};

[[nodiscard]] std::span<const FilterNumber> filterNumbers();

// Nothing for a separator or an index beyond the menu.
[[nodiscard]] std::optional<int> filterNumber(FilterMenu menu, int index);

} // namespace editing
