#include "platform/os/name_order.h"

#include "platform/os/paths.h"

#include <QChar>
#include <algorithm>
#include <numeric>
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

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

void appendFoldedAscii(std::string& bytes, std::string_view text)
{
    for (const char c : text) {
        bytes += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
}

char continuation(char32_t code, unsigned shift)
{
    return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
}

// As UTF-8 has it, and surrogates likewise, so that bytes compare as their code points do.
void appendCodePoint(std::string& bytes, char32_t code)
{
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0U | (code >> 6U));
        bytes += continuation(code, 0);
    } else if (code < 0x10000) {
        bytes += static_cast<char>(0xE0U | (code >> 12U));
        bytes += continuation(code, 6);
        bytes += continuation(code, 0);
    } else {
        bytes += static_cast<char>(0xF0U | (code >> 18U));
        bytes += continuation(code, 12);
        bytes += continuation(code, 6);
        bytes += continuation(code, 0);
    }
}

void appendCodePoints(std::string& bytes, QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char32_t code = codePointAt(text, i);
        i += QChar::requiresSurrogates(code) ? 1 : 0;
        appendCodePoint(bytes, code);
    }
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

// The folded name, then the name itself for those that differ in case only; no name holds a NUL.
void NameSorter::add(std::string_view name)
{
    const std::uint64_t start = m_bytes.size();
    if (isAscii(name)) {
        appendFoldedAscii(m_bytes, name);
        m_bytes += '\0';
        m_bytes += name;
    } else {
        const QString text = fromNative(std::string(name));
        appendCodePoints(m_bytes, text.toCaseFolded());
        m_bytes += '\0';
        appendCodePoints(m_bytes, text);
    }
    m_keys.push_back({start, static_cast<std::uint32_t>(m_bytes.size() - start)});
}

std::string_view NameSorter::key(std::uint32_t place) const
{
    return std::string_view(m_bytes).substr(m_keys[place].start, m_keys[place].length);
}

int NameSorter::compare(std::uint32_t left, std::uint32_t right) const
{
    return key(left).compare(key(right));
}

std::vector<std::uint32_t> NameSorter::order() const
{
    std::vector<std::uint32_t> places(m_keys.size());
    std::iota(places.begin(), places.end(), 0U);
    std::sort(places.begin(), places.end(),
              [this](std::uint32_t left, std::uint32_t right) { return compare(left, right) < 0; });
    return places;
}

} // namespace platform
