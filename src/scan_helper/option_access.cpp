#include "scan_helper/option_access.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string>

namespace scan_helper {

namespace {

using platform::ScanOption;
using platform::ScanRole;
using platform::ScanValue;

struct Name {
    ScanRole role;
    const char* name;
};

// The first one that can be set stands for its role.
constexpr Name kNames[] = {
    {ScanRole::Source, SANE_NAME_SCAN_SOURCE},
    {ScanRole::Mode, SANE_NAME_SCAN_MODE},
    {ScanRole::Depth, SANE_NAME_BIT_DEPTH},
    {ScanRole::Resolution, SANE_NAME_SCAN_RESOLUTION},
    {ScanRole::Resolution, SANE_NAME_SCAN_X_RESOLUTION},
    {ScanRole::Left, SANE_NAME_SCAN_TL_X},
    {ScanRole::Top, SANE_NAME_SCAN_TL_Y},
    {ScanRole::Right, SANE_NAME_SCAN_BR_X},
    {ScanRole::Bottom, SANE_NAME_SCAN_BR_Y},
    {ScanRole::Brightness, SANE_NAME_BRIGHTNESS},
    {ScanRole::Contrast, SANE_NAME_CONTRAST},
};

constexpr SANE_Int kMostOptions = 4096;
constexpr std::size_t kLongestList = 1024;
constexpr std::size_t kLongestWord = 1024;

struct Option {
    SANE_Int index = 0;
    const SANE_Option_Descriptor* facts = nullptr;
};

bool isNumber(const SANE_Option_Descriptor& facts)
{
    return (facts.type == SANE_TYPE_INT || facts.type == SANE_TYPE_FIXED) &&
           facts.size == SANE_Int(sizeof(SANE_Word));
}

bool isWord(const SANE_Option_Descriptor& facts)
{
    return facts.type == SANE_TYPE_STRING && facts.size > 0 && facts.size <= SANE_Int(kLongestWord);
}

// The first option is their number; the rest have names, or not.
std::optional<Option> findOption(const SaneLibrary& sane, SANE_Handle scanner, const char* name)
{
    for (SANE_Int index = 1; index < kMostOptions; ++index) {
        const SANE_Option_Descriptor* facts = sane.descriptor(scanner, index);
        if (facts == nullptr) {
            return std::nullopt;
        }
        const bool canBeSet =
            SANE_OPTION_IS_ACTIVE(facts->cap) && SANE_OPTION_IS_SETTABLE(facts->cap);
        if (canBeSet && facts->name != nullptr && std::strcmp(facts->name, name) == 0) {
            return Option{index, facts};
        }
    }
    return std::nullopt;
}

std::optional<Option> findOption(const SaneLibrary& sane, SANE_Handle scanner, ScanRole role)
{
    for (const Name& known : kNames) {
        const auto option =
            known.role == role ? findOption(sane, scanner, known.name) : std::nullopt;
        if (option && (isNumber(*option->facts) || isWord(*option->facts))) {
            return option;
        }
    }
    return std::nullopt;
}

double numberOf(const SANE_Option_Descriptor& facts, SANE_Word word)
{
    return facts.type == SANE_TYPE_FIXED ? SANE_UNFIX(word) : double(word);
}

SANE_Word wordOf(const SANE_Option_Descriptor& facts, double number)
{
    const double scale = facts.type == SANE_TYPE_FIXED ? 1 << SANE_FIXED_SCALE_SHIFT : 1;
    constexpr double kMost = std::numeric_limits<SANE_Word>::max();
    return SANE_Word(std::clamp(std::round(number * scale), -kMost, kMost));
}

platform::ScanUnit unitOf(SANE_Unit unit)
{
    using platform::ScanUnit;
    switch (unit) {
    case SANE_UNIT_PIXEL:
        return ScanUnit::Pixels;
    case SANE_UNIT_BIT:
        return ScanUnit::Bits;
    case SANE_UNIT_MM:
        return ScanUnit::Millimetres;
    case SANE_UNIT_DPI:
        return ScanUnit::DotsPerInch;
    case SANE_UNIT_PERCENT:
        return ScanUnit::Percent;
    default:
        return ScanUnit::None;
    }
}

void readWords(const SANE_Option_Descriptor& facts, ScanOption& option)
{
    if (facts.constraint_type != SANE_CONSTRAINT_STRING_LIST) {
        return;
    }
    for (const SANE_String_Const* word = facts.constraint.string_list;
         word != nullptr && *word != nullptr && option.words.size() < kLongestList; ++word) {
        option.words.emplace_back(*word, ::strnlen(*word, kLongestWord));
    }
}

// A number without bounds of the scanner has those of what a word holds.
void readNumbers(const SANE_Option_Descriptor& facts, ScanOption& option)
{
    option.least = numberOf(facts, std::numeric_limits<SANE_Word>::min());
    option.most = numberOf(facts, std::numeric_limits<SANE_Word>::max());
    if (facts.constraint_type == SANE_CONSTRAINT_RANGE && facts.constraint.range != nullptr) {
        option.least = numberOf(facts, facts.constraint.range->min);
        option.most = numberOf(facts, facts.constraint.range->max);
        option.step = numberOf(facts, facts.constraint.range->quant);
    } else if (facts.constraint_type == SANE_CONSTRAINT_WORD_LIST &&
               facts.constraint.word_list != nullptr) {
        const auto count = std::size_t(std::max(0, facts.constraint.word_list[0]));
        for (std::size_t i = 1; i <= std::min(count, kLongestList); ++i) {
            option.numbers.push_back(numberOf(facts, facts.constraint.word_list[i]));
        }
    }
}

bool readValue(const SaneLibrary& sane, SANE_Handle scanner, const Option& found,
               ScanOption& option)
{
    std::vector<char> bytes(std::size_t(found.facts->size) + 1);
    if (sane.control(scanner, found.index, SANE_ACTION_GET_VALUE, bytes.data(), nullptr) !=
        SANE_STATUS_GOOD) {
        return false;
    }
    if (isNumber(*found.facts)) {
        SANE_Word word = 0;
        std::memcpy(&word, bytes.data(), sizeof word);
        option.value.number = numberOf(*found.facts, word);
    } else {
        option.value.word.assign(bytes.data(), ::strnlen(bytes.data(), bytes.size()));
    }
    return true;
}

std::optional<ScanOption> readOption(const SaneLibrary& sane, SANE_Handle scanner, ScanRole role)
{
    const auto found = findOption(sane, scanner, role);
    ScanOption option;
    if (!found || !readValue(sane, scanner, *found, option)) {
        return std::nullopt;
    }
    option.role = role;
    option.unit = unitOf(found->facts->unit);
    if (isNumber(*found->facts)) {
        readNumbers(*found->facts, option);
    } else {
        readWords(*found->facts, option);
    }
    return option;
}

// The library may write back what it made of a value.
void setNamed(const SaneLibrary& sane, SANE_Handle scanner, const Option& option,
              const ScanValue& value)
{
    std::vector<char> bytes(std::size_t(option.facts->size) + 1);
    if (isNumber(*option.facts)) {
        const SANE_Word word = wordOf(*option.facts, value.number);
        std::memcpy(bytes.data(), &word, sizeof word);
    } else if (value.word.size() < std::size_t(option.facts->size)) {
        std::memcpy(bytes.data(), value.word.data(), value.word.size());
    } else {
        return;
    }
    static_cast<void>(
        sane.control(scanner, option.index, SANE_ACTION_SET_VALUE, bytes.data(), nullptr));
}

} // namespace

std::vector<ScanOption> readOptions(const SaneLibrary& sane, SANE_Handle scanner)
{
    std::vector<ScanOption> options;
    for (int role = 0; role < platform::kScanRoles; ++role) {
        if (auto option = readOption(sane, scanner, ScanRole(role))) {
            options.push_back(std::move(*option));
        }
    }
    return options;
}

void setOption(const SaneLibrary& sane, SANE_Handle scanner, ScanRole role, const ScanValue& value)
{
    if (const auto option = findOption(sane, scanner, role)) {
        setNamed(sane, scanner, *option, value);
    }
    // Scanners with two resolutions get the same for both.
    const auto vertical = role == ScanRole::Resolution
                              ? findOption(sane, scanner, SANE_NAME_SCAN_Y_RESOLUTION)
                              : std::nullopt;
    if (vertical && isNumber(*vertical->facts)) {
        setNamed(sane, scanner, *vertical, value);
    }
}

void setPreview(const SaneLibrary& sane, SANE_Handle scanner, bool preview)
{
    const auto option = findOption(sane, scanner, SANE_NAME_PREVIEW);
    if (option && option->facts->type == SANE_TYPE_BOOL) {
        SANE_Word on = preview ? SANE_TRUE : SANE_FALSE;
        static_cast<void>(
            sane.control(scanner, option->index, SANE_ACTION_SET_VALUE, &on, nullptr));
    }
}

} // namespace scan_helper
