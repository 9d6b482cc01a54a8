#include "thumbs/bar_texts.h"

#include "thumbs/page_limit.h"

#include <array>

namespace thumbs {

namespace {

struct Words {
    std::int32_t language;
    const char* page;
    const char* picture;
    const char* of;
};

constexpr std::array kRunning{
    Words{kDutch, " Pagina ", " Afbeelding: ", " van: "},
    Words{kEnglish, " Page ", " picture: ", " from: "},
};

constexpr std::array kClosing{
    Words{kDutch, " Pagina: ", " Afbeelding: ", " van: "},
    Words{kEnglish, " Page: ", " Picture: ", " from: "},
};

std::optional<QString> counted(const std::array<Words, 2>& table, std::int32_t language, int page,
                               const BarFacts& facts)
{
    for (const Words& words : table) {
        if (words.language == language) {
            return words.page + QString::number(page) + words.picture +
                   QString::number(facts.picture + 1) + words.of + QString::number(facts.files);
        }
    }
    return std::nullopt;
}

QString sizeText(const BarFacts& facts)
{
    if (!facts.pictureSize) {
        return {};
    }
    const QString number = QString::number(*facts.pictureSize);
    return "  ThumbSize:" + number + " x " + number;
}

} // namespace

std::optional<QString> runningText(std::int32_t language, const BarFacts& facts)
{
    std::optional<QString> text = counted(kRunning, language, facts.page + 1, facts);
    if (text) {
        *text += sizeText(facts);
    }
    return text;
}

std::optional<QString> closingText(std::int32_t language, const BarFacts& facts)
{
    std::optional<QString> text = counted(kClosing, language, facts.page, facts);
    if (text) {
        *text += "  Tijd:" + sizeText(facts);
    }
    return text;
}

} // namespace thumbs
