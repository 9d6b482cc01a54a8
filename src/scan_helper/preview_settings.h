#pragma once

#include "platform/devices/scan_facts.h"

#include <vector>

namespace scan_helper {

struct Setting {
    platform::ScanRole role;
    platform::ScanValue value;
};

// What a preview is scanned with: the whole bed, at a resolution of about a screen's, with eight
// bits where the scanner has them. Only options that stand otherwise now are given.
[[nodiscard]] std::vector<Setting>
previewSettings(const std::vector<platform::ScanOption>& options);

// The same options as they stand now.
[[nodiscard]] std::vector<Setting> settingsBefore(const std::vector<Setting>& changes,
                                                  const std::vector<platform::ScanOption>& options);

} // namespace scan_helper
