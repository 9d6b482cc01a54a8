#include "platform/os/name_order.h"

#include <QChar>
#include <algorithm>
#include <utility>

namespace platform {

namespace {

char32_t codePointAt(QStringView text, qsizetype index)
{
    const bool isPair = text[index].isHighSurrogate() && index + 1 < text.size() &&
                        text[index + 1].isLowSurrogate();
    return isPair ? QChar::surrogateToUcs4(text[index], text[index + 1])
                  : char32_t(text[index].unicode());
}

bool precedes(const FoldedName& left, const FoldedName& right)
{
    const int order = compareByCodePoint(left.folded, right.folded);
    return order != 0 ? order < 0 : compareByCodePoint(left.name, right.name) < 0;
}

} // namespace

int compareByCodePoint(QStringView left, QStringView right)
{
    const auto parting = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    qsizetype index = parting.first - left.begin();
    if (index == left.size() || index == right.size()) {
        return left.size() < right.size() ? -1 : int(left.size() > right.size());
    }
    // The second halves of two pairs may differ where the first ones are the same.
    if (index > 0 && left[index - 1].isHighSurrogate()) {
        --index;
    }
    return codePointAt(left, index) < codePointAt(right, index) ? -1 : 1;
}

std::vector<QString> inOrder(std::vector<FoldedName> names)
{
    std::sort(names.begin(), names.end(), precedes);
    std::vector<QString> sorted;
    sorted.reserve(names.size());
    for (FoldedName& entry : names) {
        sorted.push_back(std::move(entry.name));
    }
    return sorted;
}

} // namespace platform
