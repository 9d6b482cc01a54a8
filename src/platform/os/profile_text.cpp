#include "platform/os/profile_text.h"

#include "platform/os/paths.h"

namespace platform {

namespace {

constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";

struct Line {
    QByteArrayView text; // without its line end and the blanks around it
    qsizetype begin = 0; // of the text, in the file
    qsizetype end = 0;   // behind the line end
};

class Lines {
public:
    explicit Lines(const QByteArray& text)
        : m_text(text)
        , m_next(m_text.startsWith(kByteOrderMark) ? kByteOrderMark.size() : 0)
    {
    }

    bool next(Line& line)
    {
        if (m_next >= m_text.size()) {
            return false;
        }
        const qsizetype lineFeed = m_text.indexOf('\n', m_next);
        line.end = lineFeed < 0 ? m_text.size() : lineFeed + 1;
        const QByteArrayView whole = m_text.sliced(m_next, line.end - m_next);
        line.text = whole.trimmed();
        line.begin = line.text.data() - m_text.data();
        m_next = line.end;
        return true;
    }

private:
    QByteArrayView m_text;
    qsizetype m_next;
};

bool isAscii(QByteArrayView bytes)
{
    for (const char byte : bytes) {
        if (static_cast<unsigned char>(byte) >= 0x80U) {
            return false;
        }
    }
    return true;
}

// A name to look for. Names are ASCII as a rule, and then nothing needs to be decoded.
class Name {
public:
    explicit Name(const QString& text)
        : m_text(text)
        , m_bytes(QByteArray::fromStdString(toNative(text)))
        , m_isAscii(isAscii(m_bytes))
    {
    }

    [[nodiscard]] bool matches(QByteArrayView bytes) const
    {
        if (m_isAscii) {
            return bytes.size() == m_bytes.size() &&
                   m_bytes.compare(bytes, Qt::CaseInsensitive) == 0;
        }
        return m_text.compare(fromNative(bytes.toByteArray().toStdString()), Qt::CaseInsensitive) ==
               0;
    }

private:
    QString m_text;
    QByteArray m_bytes;
    bool m_isAscii;
};

std::optional<QByteArrayView> sectionName(QByteArrayView line)
{
    if (!line.startsWith('[')) {
        return std::nullopt;
    }
    const qsizetype close = line.lastIndexOf(']');
    return close < 0 ? std::nullopt
                     : std::optional<QByteArrayView>(line.sliced(1, close - 1).trimmed());
}

bool isComment(QByteArrayView line)
{
    return line.startsWith(';') || line.startsWith('#');
}

// Where a key's value stands in the file, or where a new key goes.
struct Place {
    bool isFound = false;
    qsizetype valueBegin = 0;
    qsizetype valueEnd = 0;
    qsizetype insertAt = -1; // behind the last line of the section's text; -1: no such section
};

Place find(const QByteArray& text, const QString& section, const QString& key)
{
    const Name wantedSection(section);
    const Name wantedKey(key);
    Place place;
    Line line;
    bool isInside = false;
    bool isFirst = false; // inside the first section of that name, which takes new keys
    for (Lines lines(text); lines.next(line);) {
        if (const auto name = sectionName(line.text)) {
            isInside = wantedSection.matches(*name);
            isFirst = isInside && place.insertAt < 0;
        }
        if (!isInside) {
            continue;
        }
        if (isFirst && !line.text.isEmpty()) {
            place.insertAt = line.end;
        }
        const qsizetype equals = line.text.indexOf('=');
        if (equals < 0 || isComment(line.text) || line.text.startsWith('[') ||
            !wantedKey.matches(line.text.first(equals).trimmed())) {
            continue;
        }
        const QByteArrayView value = line.text.sliced(equals + 1).trimmed();
        place.isFound = true;
        place.valueBegin = value.isEmpty() ? line.begin + equals + 1 : value.data() - text.data();
        place.valueEnd = line.begin + line.text.size();
        return place;
    }
    return place;
}

QByteArray firstLineOf(const QString& text)
{
    qsizetype length = 0;
    while (length < text.size() && text[length] != u'\n' && text[length] != u'\r' &&
           text[length] != u'\0') {
        ++length;
    }
    return QByteArray::fromStdString(toNative(text.left(length)));
}

QByteArrayView lineEndBefore(QByteArrayView text)
{
    return text.endsWith("\r\n") ? "\r\n" : "\n";
}

} // namespace

std::optional<QByteArrayView> profileValue(const QByteArray& text, const QString& section,
                                           const QString& key)
{
    const Place place = find(text, section, key);
    if (!place.isFound) {
        return std::nullopt;
    }
    return QByteArrayView(text).sliced(place.valueBegin, place.valueEnd - place.valueBegin);
}

QByteArray withProfileValue(const QByteArray& text, const QString& section, const QString& key,
                            const QString& value)
{
    const Place place = find(text, section, key);
    const QByteArrayView all = text;
    if (place.isFound) {
        return all.first(place.valueBegin).toByteArray() + firstLineOf(value) +
               all.sliced(place.valueEnd).toByteArray();
    }
    const bool hasSection = place.insertAt >= 0;
    const qsizetype at = hasSection ? place.insertAt : all.size();
    QByteArray result = all.first(at).toByteArray();
    // A file of one style keeps it, even where its last line has no end.
    const QByteArray lineEnd = lineEndBefore(all.first(all.indexOf('\n') + 1)).toByteArray();
    if (!result.isEmpty() && result != kByteOrderMark && !result.endsWith('\n')) {
        result += lineEnd;
    }
    if (!hasSection) {
        result += '[' + firstLineOf(section) + ']' + lineEnd;
    }
    result += firstLineOf(key) + '=' + firstLineOf(value) + lineEnd;
    return result + all.sliced(at).toByteArray();
}

} // namespace platform
