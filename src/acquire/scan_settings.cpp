#include "acquire/scan_settings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace acquire {

namespace {

using platform::ScanOption;
using platform::ScanRole;
using platform::ScanUnit;

constexpr std::array kUsualResolutions{75.0, 100.0, 150.0, 200.0, 300.0, 400.0, 600.0, 1200.0};
constexpr std::array kUsualDepths{1.0, 8.0, 16.0};
constexpr double kLeastResolution = 75; // dots per inch
constexpr double kFirstResolution = 150;
constexpr double kMillimetresAnInch = 25.4;

constexpr std::array kFailureTexts{
    "The part of the program that talks to scanners is missing.",
    "The system's scanner library (SANE) is not installed.",
    "The scanner's driver crashed.",
    "The scanner doesn't answer. Is it switched on?",
    "The scanner's driver gave an answer that makes no sense.",
    "The scan was stopped.",
    "The scanner isn't there, or it refuses these settings.",
    "The scanner can't do that.",
    "The scanner is busy. Try again in a moment.",
    "The paper is jammed.",
    "There is no paper in the feeder.",
    "The scanner's cover is open.",
    "The connection to the scanner failed. Is it plugged in and switched on?",
    "There is not enough memory for this picture.",
    "You are not allowed to use this scanner.",
    "The scanner asks for a password, which Vistara can't give.",
    "The picture would be larger than 512 MB. Choose a lower resolution or a smaller area.",
    "The scanner sent no picture.",
};
static_assert(kFailureTexts.size() == platform::kScanFailures);

std::span<const double> usualNumbers(ScanRole role)
{
    return role == ScanRole::Resolution ? std::span<const double>(kUsualResolutions)
           : role == ScanRole::Depth    ? std::span<const double>(kUsualDepths)
                                        : std::span<const double>();
}

bool takes(const ScanOption& option, double number)
{
    return number >= option.least && number <= option.most;
}

double numberOf(const ScanOptions& options, ScanRole role)
{
    const ScanOption* option = optionOf(options, role);
    return option == nullptr ? 0 : option->value.number;
}

// The number offered that comes next to the one wished for, from below if it can.
double nearest(const std::vector<double>& offered, double wished)
{
    const auto above = std::upper_bound(offered.begin(), offered.end(), wished);
    return above == offered.begin() ? offered.front() : *std::prev(above);
}

double pixelsAUnit(const ScanOptions& options)
{
    const ScanOption* right = optionOf(options, ScanRole::Right);
    if (right == nullptr || right->unit != ScanUnit::Millimetres) {
        return 1;
    }
    return numberOf(options, ScanRole::Resolution) / kMillimetresAnInch;
}

} // namespace

const ScanOption* optionOf(const ScanOptions& options, ScanRole role)
{
    const auto found = std::find_if(options.begin(), options.end(),
                                    [role](const auto& option) { return option.role == role; });
    return found == options.end() ? nullptr : &*found;
}

std::vector<double> numbersToOffer(const ScanOption& option)
{
    std::vector<double> offered = option.numbers;
    if (offered.empty()) {
        for (const double number : usualNumbers(option.role)) {
            if (takes(option, number)) {
                offered.push_back(number);
            }
        }
    }
    offered.push_back(option.value.number);
    std::sort(offered.begin(), offered.end());
    offered.erase(std::unique(offered.begin(), offered.end()), offered.end());
    return offered;
}

ScanSettings firstSettings(const ScanOptions& options, const ScanSettings& before)
{
    ScanSettings settings = before;
    const ScanOption* resolution = optionOf(options, ScanRole::Resolution);
    if (resolution != nullptr && resolution->value.number < kLeastResolution &&
        !before.contains(ScanRole::Resolution)) {
        settings[ScanRole::Resolution] = {{},
                                          nearest(numbersToOffer(*resolution), kFirstResolution)};
    }
    return settings;
}

ScanOptions withSettings(ScanOptions options, const ScanSettings& settings)
{
    for (ScanOption& option : options) {
        const auto set = settings.find(option.role);
        option.value = set == settings.end() ? option.value : set->second;
    }
    return options;
}

QRectF bedOf(const ScanOptions& options)
{
    const ScanOption* left = optionOf(options, ScanRole::Left);
    const ScanOption* top = optionOf(options, ScanRole::Top);
    const ScanOption* right = optionOf(options, ScanRole::Right);
    const ScanOption* bottom = optionOf(options, ScanRole::Bottom);
    if (left == nullptr || top == nullptr || right == nullptr || bottom == nullptr) {
        return {};
    }
    const QRectF bed(QPointF(left->least, top->least), QPointF(right->most, bottom->most));
    return bed.isValid() ? bed : QRectF();
}

QRectF areaOf(const ScanOptions& options)
{
    const QRectF bed = bedOf(options);
    const QRectF area(
        QPointF(numberOf(options, ScanRole::Left), numberOf(options, ScanRole::Top)),
        QPointF(numberOf(options, ScanRole::Right), numberOf(options, ScanRole::Bottom)));
    const QRectF inside = area.normalized() & bed;
    return inside.isEmpty() ? bed : inside;
}

QSize pictureSize(const ScanOptions& options, const QRectF& area)
{
    static constexpr double kMost = 1e9;
    const double scale = pixelsAUnit(options);
    const auto pixels = [scale](double length) {
        return int(std::clamp(std::round(length * scale), 0.0, kMost));
    };
    return {pixels(area.width()), pixels(area.height())};
}

QString numberText(double number, ScanUnit unit)
{
    const QString digits = QString::number(number, 'g', 6);
    switch (unit) {
    case ScanUnit::Pixels:
        return digits + QStringLiteral(" pixels");
    case ScanUnit::Bits:
        return digits + (number == 1 ? QStringLiteral(" bit") : QStringLiteral(" bits"));
    case ScanUnit::Millimetres:
        return digits + QStringLiteral(" mm");
    case ScanUnit::DotsPerInch:
        return digits + QStringLiteral(" dpi");
    case ScanUnit::Percent:
        return digits + QStringLiteral(" %");
    case ScanUnit::None:
        break;
    }
    return digits;
}

QString pictureText(QSize size)
{
    if (size.isEmpty()) {
        return {};
    }
    constexpr double kMegabyte = 1 << 20;
    const double megabytes = 4.0 * size.width() * size.height() / kMegabyte;
    return QStringLiteral("%1 x %2 pixels, %3 MB")
        .arg(size.width())
        .arg(size.height())
        .arg(megabytes, 0, 'f', 1);
}

QString failureText(platform::ScanFailure why)
{
    return QString::fromLatin1(kFailureTexts[std::size_t(why)]);
}

QString scannerText(const platform::ScannerFacts& scanner)
{
    const QString text = QString::fromStdString(scanner.vendor + ' ' + scanner.model).trimmed();
    return text.isEmpty() ? QString::fromStdString(scanner.name) : text;
}

} // namespace acquire
