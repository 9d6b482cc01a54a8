#pragma once

#include "platform/devices/scan_facts.h"

#include <QRectF>
#include <QSize>
#include <QString>
#include <map>
#include <vector>

// What is said and reckoned about scanners without a window.
namespace acquire {

using ScanOptions = std::vector<platform::ScanOption>;
// What a user has set, by role.
using ScanSettings = std::map<platform::ScanRole, platform::ScanValue>;

// Null for a role that the scanner hasn't got now.
[[nodiscard]] const platform::ScanOption* optionOf(const ScanOptions& options,
                                                   platform::ScanRole role);

// The numbers to choose from: those that the scanner takes, or of a range the usual ones for the
// role, and always the one that stands.
[[nodiscard]] std::vector<double> numbersToOffer(const platform::ScanOption& option);

// What a scanner is set to as it is opened: what the user set before, and a resolution that is
// worth looking at where its own is less than that.
[[nodiscard]] ScanSettings firstSettings(const ScanOptions& options, const ScanSettings& before);

// The options as they will stand when the settings are made.
[[nodiscard]] ScanOptions withSettings(ScanOptions options, const ScanSettings& settings);

// All that can be scanned and the part that is set, in the scanner's units; empty where it tells no
// area.
[[nodiscard]] QRectF bedOf(const ScanOptions& options);
[[nodiscard]] QRectF areaOf(const ScanOptions& options);

// Pixels of a picture of an area; empty where that isn't known before.
[[nodiscard]] QSize pictureSize(const ScanOptions& options, const QRectF& area);

// Texts for the user.
[[nodiscard]] QString numberText(double number, platform::ScanUnit unit);
[[nodiscard]] QString pictureText(QSize size);
[[nodiscard]] QString failureText(platform::ScanFailure why);
[[nodiscard]] QString scannerText(const platform::ScannerFacts& scanner);

} // namespace acquire
