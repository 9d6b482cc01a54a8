#pragma once

#include "files/explorer/list_rows.h"
#include "files/explorer/percent.h"
#include "files/explorer/places.h"

#include <cstdint>

namespace files {

// The three listings that stand above folders.
enum class RootType : std::int16_t { WorkSpace = 0, MyComputer = 1, ControlPanel = 2 };

// The places below the work space; or drives, favourites and documents; or the applets by name,
// those without a name left out.
[[nodiscard]] ListRows listRoot(RootType type, const Places& places, const HiddenPlaces& hidden,
                                const ProgressHandler& progress);

} // namespace files
