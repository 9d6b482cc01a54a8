#pragma once

#include "platform/devices/scan_facts.h"
#include "scan_helper/sane_library.h"

#include <vector>

namespace scan_helper {

// An open scanner's options of the known roles, as far as they can be set now.
[[nodiscard]] std::vector<platform::ScanOption> readOptions(const SaneLibrary& sane,
                                                            SANE_Handle scanner);

// Sets one of them to a value, or what the scanner makes of it. One that isn't there, or won't,
// stays as it is.
void setOption(const SaneLibrary& sane, SANE_Handle scanner, platform::ScanRole role,
               const platform::ScanValue& value);

// Tells the scanner that the next scan is a preview, where it has a switch for that.
void setPreview(const SaneLibrary& sane, SANE_Handle scanner, bool preview);

} // namespace scan_helper
