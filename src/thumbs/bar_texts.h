#pragma once

#include <QString>
#include <cstdint>
#include <optional>

// The lines of the information bar. Nothing for a language without texts.
namespace thumbs {

struct BarFacts {
    int page = 0;    // from 0
    int picture = 0; // index of the file, from 0
    int files = 0;
    std::optional<int> pictureSize = {}; // of a tile; sheets for paper tell none
};

[[nodiscard]] std::optional<QString> runningText(std::int32_t language, const BarFacts& facts);

// Counts the page from 0 and names the place behind the last picture; no time is told behind its
// word.
[[nodiscard]] std::optional<QString> closingText(std::int32_t language, const BarFacts& facts);

} // namespace thumbs
