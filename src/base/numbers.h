#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Conversions between text and numbers as the program's settings and fields use them. None of them
// looks at the locale: the decimal separator is always ".".
namespace base {

// The number that the text begins with, after blanks: sign, digits, fraction and exponent. A text
// without leading digits ("ERROR", "") is 0. "3 items" is 3.
double leadingNumber(std::string_view text);

// The whole text as a 32-bit integer, blanks around it allowed; a fraction is rounded half to even.
// Nothing when the text is no number or out of range.
std::optional<std::int32_t> strictInteger(std::string_view text);

// "True" and "False" in any case, or a number (anything but 0 is true). Nothing for other text.
std::optional<bool> toBoolean(std::string_view text);

// Rounds to the nearest whole number, halves to the even one. Values beyond 64 bits saturate.
std::int64_t roundHalfEven(double value);

// The value as 16 (or 32) bits, or nothing where it doesn't fit; the caller then keeps what it had.
std::optional<std::int16_t> narrow16(std::int64_t value);
std::optional<std::int32_t> narrow32(std::int64_t value);

// Rounds half to even, then narrows.
std::optional<std::int16_t> roundTo16(double value);

// Shortest decimal text of at most 15 significant digits: "2", "1.5", "1.0009765625".
std::string decimalText(double value);

} // namespace base
