#pragma once

#include <QString>
#include <cstdint>
#include <optional>

// The lines of the information bar while an album is made. Nothing for a language without texts.
namespace albums {

enum class RunStage { MasterRow, FullPicture, DetailPage };

// The number of the picture counts from 1.
[[nodiscard]] std::optional<QString> stageText(std::int32_t language, RunStage stage, int number,
                                               int count);
[[nodiscard]] std::optional<QString> doneText(std::int32_t language);

} // namespace albums
