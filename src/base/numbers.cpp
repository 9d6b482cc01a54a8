#include "base/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace base {

namespace {

constexpr int kSignificantDigits = 15;

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view withoutLeadingBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

std::string_view trimmed(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// What stands for a number that no double can hold: 0 for one that is too small, by its exponent or
// as a fraction without one, else infinity.
double beyondDouble(std::string_view number)
{
    const bool negative = number.starts_with('-');
    const std::size_t mark = number.find_first_of("eE");
    const bool tiny = mark == std::string_view::npos
                          ? number.find_first_of("123456789") > number.find('.')
                          : number.substr(mark + 1).starts_with('-');
    const double size = tiny ? 0 : std::numeric_limits<double>::infinity();
    return negative ? -size : size;
}

struct ParsedNumber {
    double value = 0;
    std::size_t length = 0; // characters taken; 0 when there is no number
};

ParsedNumber parseNumber(std::string_view text)
{
    const bool hasPlus = text.starts_with('+');
    const std::string_view digits = hasPlus ? text.substr(1) : text;
    const std::string_view unsignedDigits = digits.starts_with('-') ? digits.substr(1) : digits;
    const bool startsLikeNumber =
        !unsignedDigits.empty() &&
        (unsignedDigits.front() == '.' ||
         (unsignedDigits.front() >= '0' && unsignedDigits.front() <= '9'));
    if (!startsLikeNumber || (hasPlus && digits.starts_with('-'))) {
        return {};
    }
    ParsedNumber number;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number.value);
    if (error == std::errc::invalid_argument) {
        return {};
    }
    if (error == std::errc::result_out_of_range) {
        number.value =
            beyondDouble(digits.substr(0, static_cast<std::size_t>(end - digits.data())));
    }
    number.length = static_cast<std::size_t>(end - text.data());
    return number;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase)
{
    if (text.size() != lowerCase.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] + 32) : text[i];
        if (c != lowerCase[i]) {
            return false;
        }
    }
    return true;
}

std::optional<double> wholeNumberText(std::string_view text)
{
    text = trimmed(text);
    const ParsedNumber number = parseNumber(text);
    if (number.length == 0 || number.length != text.size()) {
        return std::nullopt;
    }
    return number.value;
}

} // namespace

double leadingNumber(std::string_view text)
{
    return parseNumber(withoutLeadingBlanks(text)).value;
}

std::optional<std::int32_t> strictInteger(std::string_view text)
{
    const std::optional<double> value = wholeNumberText(text);
    if (!value || !std::isfinite(*value)) {
        return std::nullopt;
    }
    return narrow32(roundHalfEven(*value));
}

std::optional<bool> toBoolean(std::string_view text)
{
    const std::string_view word = trimmed(text);
    if (equalsIgnoringCase(word, "true")) {
        return true;
    }
    if (equalsIgnoringCase(word, "false")) {
        return false;
    }
    const std::optional<double> value = wholeNumberText(word);
    if (!value) {
        return std::nullopt;
    }
    return *value != 0;
}

std::int64_t roundHalfEven(double value)
{
    constexpr double kLimit = 9223372036854774784.0; // largest double below 2^63
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= kLimit) {
        return std::numeric_limits<std::int64_t>::max();
    }
    if (value <= -kLimit) {
        return std::numeric_limits<std::int64_t>::min();
    }
    const double below = std::floor(value);
    const double fraction = value - below;
    const auto whole = static_cast<std::int64_t>(below);
    if (fraction < 0.5 || (fraction == 0.5 && whole % 2 == 0)) {
        return whole;
    }
    return whole + 1;
}

std::optional<std::int16_t> narrow16(std::int64_t value)
{
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(value);
}

std::optional<std::int32_t> narrow32(std::int64_t value)
{
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

std::optional<std::int16_t> roundTo16(double value)
{
    return narrow16(roundHalfEven(value));
}

std::string decimalText(double value)
{
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::general, kSignificantDigits);
    return error == std::errc() ? std::string(buffer.data(), end) : std::string();
}

} // namespace base
