#include "platform/os/paths.h"

#include <string_view>

namespace platform {

namespace {

// A byte that is no part of UTF-8 stands as a lone low surrogate.
constexpr char32_t kEscapeBase = 0xDC00;

struct Decoded {
    char32_t code = 0;
    std::size_t length = 1; // bytes taken
};

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Well-formed sequences only: no overlong forms, no surrogates, nothing beyond U+10FFFF. Any other
// byte is taken alone and escaped.
Decoded decodeOne(std::string_view bytes)
{
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (first < 0x80U) {
        return {first, 1};
    }
    const std::size_t length = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : 2;
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const Decoded escaped = {kEscapeBase + first, 1};
    if (first < 0xC2U || first > 0xF4U || bytes.size() < length) {
        return escaped;
    }
    char32_t code = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(bytes[i])) {
            return escaped;
        }
        code = (code << 6U) | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < kLeast[length] || code > 0x10FFFF || isSurrogate) {
        return escaped;
    }
    return {code, length};
}

bool isEscape(QChar unit)
{
    return unit.unicode() >= kEscapeBase + 0x80 && unit.unicode() <= kEscapeBase + 0xFF;
}

} // namespace

QString fromNative(const std::string& bytes)
{
    // Qt's decoder is the fast way, but it drops a byte order mark and replaces what is no UTF-8.
    const bool beginsWithMark = bytes.starts_with("\xEF\xBB\xBF");
    if (!beginsWithMark) {
        const QString text = QString::fromStdString(bytes);
        if (!text.contains(QChar(QChar::ReplacementCharacter))) {
            return text;
        }
    }
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const Decoded one = decodeOne(rest);
        if (QChar::requiresSurrogates(one.code)) {
            text += QChar(QChar::highSurrogate(one.code));
            text += QChar(QChar::lowSurrogate(one.code));
        } else {
            text += QChar(static_cast<char16_t>(one.code));
        }
        rest.remove_prefix(one.length);
    }
    return text;
}

std::string toNative(const QString& path)
{
    if (path.isValidUtf16()) {
        return path.toStdString();
    }
    std::string bytes;
    qsizetype runStart = 0;
    const auto appendRun = [&](qsizetype end) {
        bytes += path.mid(runStart, end - runStart).toStdString();
        runStart = end;
    };
    for (qsizetype i = 0; i < path.size(); ++i) {
        const bool isPair =
            path[i].isHighSurrogate() && i + 1 < path.size() && path[i + 1].isLowSurrogate();
        if (isPair) {
            ++i;
        } else if (isEscape(path[i])) {
            appendRun(i);
            bytes += static_cast<char>(path[i].unicode() - kEscapeBase);
            runStart = i + 1;
        }
    }
    appendRun(path.size());
    return bytes;
}

} // namespace platform
