#include "publishing/albums/page_text.h"

#include "platform/os/file_url.h"

namespace albums {

namespace {

constexpr char32_t kLastLatin1 = 0xFF;
constexpr char32_t kLastAscii = 0x7F;

QByteArray reference(char32_t code)
{
    return "&#" + QByteArray::number(code) + ';';
}

} // namespace

QByteArray markupBytes(const QString& markup, Writing writing)
{
    const char32_t last = writing == Writing::Plain ? kLastLatin1 : kLastAscii;
    QByteArray bytes;
    // Bytes of a name that are no text show as U+FFFD.
    for (const char32_t code : markup.toUcs4()) {
        if (code <= last) {
            bytes += static_cast<char>(code);
        } else {
            bytes += reference(code);
        }
    }
    return bytes;
}

QByteArray textBytes(const QString& text, Writing writing)
{
    if (writing == Writing::Plain) {
        return markupBytes(text, writing);
    }
    return markupBytes(text.toHtmlEscaped(), writing);
}

QByteArray linkBytes(const QString& path, Writing writing)
{
    return writing == Writing::Plain ? markupBytes(path, writing) : platform::percentEncoded(path);
}

} // namespace albums
