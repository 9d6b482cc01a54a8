#include "scan_helper/preview_settings.h"

#include <algorithm>
#include <optional>

namespace scan_helper {

namespace {

using platform::ScanOption;
using platform::ScanRole;

constexpr double kPreviewResolution = 75;
constexpr double kPreviewDepth = 8;

// The lowest number of an option that isn't below the one wished for, else the highest.
double nearestFrom(const ScanOption& option, double wished)
{
    if (option.numbers.empty()) {
        return std::max(option.least, std::min(option.most, wished));
    }
    double best = *std::max_element(option.numbers.begin(), option.numbers.end());
    for (const double number : option.numbers) {
        best = number >= wished ? std::min(best, number) : best;
    }
    return best;
}

bool has(const ScanOption& option, double number)
{
    const auto& numbers = option.numbers;
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

std::optional<double> previewNumber(const ScanOption& option)
{
    switch (option.role) {
    case ScanRole::Left:
    case ScanRole::Top:
        return nearestFrom(option, option.least);
    case ScanRole::Right:
    case ScanRole::Bottom:
        return nearestFrom(option, option.most);
    case ScanRole::Resolution:
        return nearestFrom(option, kPreviewResolution);
    case ScanRole::Depth:
        return has(option, kPreviewDepth) ? std::optional(kPreviewDepth) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

std::vector<Setting> previewSettings(const std::vector<ScanOption>& options)
{
    std::vector<Setting> settings;
    for (const ScanOption& option : options) {
        const auto number = previewNumber(option);
        if (option.words.empty() && number && *number != option.value.number) {
            settings.push_back({option.role, {{}, *number}});
        }
    }
    return settings;
}

std::vector<Setting> settingsBefore(const std::vector<Setting>& changes,
                                    const std::vector<ScanOption>& options)
{
    std::vector<Setting> before;
    for (const Setting& change : changes) {
        const auto option =
            std::find_if(options.begin(), options.end(),
                         [&](const ScanOption& known) { return known.role == change.role; });
        before.push_back({change.role, option->value});
    }
    return before;
}

} // namespace scan_helper
