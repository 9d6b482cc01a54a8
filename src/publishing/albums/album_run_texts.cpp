#include "publishing/albums/album_run_texts.h"

#include "thumbs/page_limit.h"

#include <algorithm>
#include <array>

namespace albums {

namespace {

struct Words {
    std::int32_t language;
    std::array<const char*, 3> stages; // in their order, before the number
    const char* of;
    const char* done;
};

constexpr std::array kWords{
    Words{thumbs::kDutch,
          {" Bezig met maken html Master pagina, afbeelding: ",
           " Bezig met comprimeren naar jpg formaat, afbeelding: ",
           " Bezig met maken html Detail pagina`s, afbeelding: "},
          " van: ",
          " Klaar !!"},
    Words{thumbs::kEnglish,
          {" Creating html Master page, processing Picture: ",
           " Compressing picture to jpg format, Picture: ",
           " Creating html Detail pages, processing Picture: "},
          " from: ",
          " All done !!"},
};

const Words* wordsOf(std::int32_t language)
{
    const auto* const found = std::ranges::find(kWords, language, &Words::language);
    return found == kWords.end() ? nullptr : found;
}

} // namespace

std::optional<QString> stageText(std::int32_t language, RunStage stage, int number, int count)
{
    const Words* const words = wordsOf(language);
    if (words == nullptr) {
        return std::nullopt;
    }
    return words->stages[static_cast<std::size_t>(stage)] + QString::number(number) + words->of +
           QString::number(count);
}

std::optional<QString> doneText(std::int32_t language)
{
    const Words* const words = wordsOf(language);
    return words == nullptr ? std::nullopt : std::optional<QString>(words->done);
}

} // namespace albums
