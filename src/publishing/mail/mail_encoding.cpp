#include "publishing/mail/mail_encoding.h"

#include "publishing/mail/mail_message.h"

#include <QUrl>
#include <algorithm>

namespace mail {

namespace {

constexpr qsizetype kFoldBehind = 60;     // characters of a head line
constexpr qsizetype kLongestFolded = 500; // characters of a line where there is no blank
constexpr qsizetype kLongestName = 60;
constexpr qsizetype kBytesOfWord = 39;   // of UTF-8; with "Subject: " a line of 73 characters
constexpr qsizetype kLongestQuoted = 75; // characters of a line ahead of its "="
constexpr char kFold[] = "\r\n ";

bool isPlain(const QString& text)
{
    return !text.contains(QLatin1String("=?")) &&
           std::all_of(text.begin(), text.end(),
                       [](QChar one) { return one.unicode() >= 0x20 && one.unicode() < 0x7F; });
}

// Breaks lines at blanks.
QByteArray folded(const QByteArray& text)
{
    QByteArray lines;
    qsizetype column = 0;
    for (const QByteArray& word : text.split(' ')) {
        const bool fold = column > kFoldBehind && !word.isEmpty();
        lines += lines.isEmpty() && column == 0 ? word : (fold ? kFold : " ") + word;
        column = (fold ? 0 : column) + word.size() + 1;
    }
    return lines;
}

QByteArray encodedWords(const QString& text)
{
    QByteArrayList words;
    QByteArray bytes;
    for (const char32_t point : text.toUcs4()) {
        const QByteArray character = QString::fromUcs4(&point, 1).toUtf8();
        if (bytes.size() + character.size() > kBytesOfWord) {
            words.append("=?UTF-8?B?" + bytes.toBase64() + "?=");
            bytes.clear();
        }
        bytes += character;
    }
    words.append("=?UTF-8?B?" + bytes.toBase64() + "?=");
    return words.join(kFold);
}

bool hasLongLine(const QByteArray& lines)
{
    const QByteArrayList all = lines.split('\n');
    return std::any_of(all.begin(), all.end(),
                       [](const QByteArray& line) { return line.size() > kLongestFolded; });
}

// Plain ASCII in double quotes.
QByteArray quotedText(const QString& text)
{
    return '"' + text.toLatin1().replace('\\', "\\\\").replace('"', "\\\"") + '"';
}

// Needs no "=" and two digits, wherever in a line it stands.
bool isSafe(char character)
{
    return (character >= ' ' && character <= '~' && character != '=') || character == '\t' ||
           character == '\r' || character == '\n';
}

QByteArray hexadecimal(char character)
{
    return '=' + QByteArray(1, character).toHex().toUpper();
}

} // namespace

bool isAscii(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(), [](char one) { return (one & 0x80) == 0; });
}

QByteArray headWords(const QString& text)
{
    const QString line = onOneLine(text).trimmed();
    if (!isPlain(line)) {
        return encodedWords(line);
    }
    const QByteArray lines = folded(line.toLatin1());
    return hasLongLine(lines) ? encodedWords(line) : lines;
}

QByteArray nameWords(const QString& text)
{
    const QString line = onOneLine(text).trimmed();
    return isPlain(line) && line.size() <= kLongestName ? quotedText(line) : encodedWords(line);
}

QByteArray headParameter(const QByteArray& name, const QString& value)
{
    const QString line = onOneLine(value);
    if (isPlain(line)) {
        return name + '=' + quotedText(line);
    }
    return name + "*=UTF-8''" + QUrl::toPercentEncoding(line);
}

QByteArray QuotedPrintable::next(qsizetype about)
{
    QByteArray piece;
    piece.reserve(about + kLongestQuoted);
    while (m_at < m_text.size() && piece.size() < about) {
        if (isLineEnd(m_at)) {
            addLineEnd(piece);
        } else {
            addCharacter(piece);
        }
    }
    if (m_at == m_text.size() && m_column > 0) {
        piece += "\r\n";
        m_column = 0;
    }
    return piece;
}

void QuotedPrintable::addLineEnd(QByteArray& to)
{
    m_at += m_text[m_at] == '\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == '\n' ? 2 : 1;
    m_column = 0;
    to += "\r\n";
}

// A soft break puts the character at the begin of a line, where other rules hold for it.
void QuotedPrintable::addCharacter(QByteArray& to)
{
    const char character = m_text[m_at];
    if (m_column + (goesAsItIs(character) ? 1 : 3) > kLongestQuoted) {
        to += "=\r\n";
        m_column = 0;
    }
    const qsizetype before = to.size();
    if (goesAsItIs(character)) {
        to += character;
    } else {
        to += hexadecimal(character);
    }
    m_column += to.size() - before;
    ++m_at;
}

bool QuotedPrintable::isLineEnd(qsizetype at) const
{
    return m_text[at] == '\r' || m_text[at] == '\n';
}

// A blank doesn't survive at the end of a line, nor do a dot and an "F" of "From" at its begin.
bool QuotedPrintable::goesAsItIs(char character) const
{
    if (character == ' ' || character == '\t') {
        return m_at + 1 < m_text.size() && !isLineEnd(m_at + 1);
    }
    if (m_column == 0 && (character == '.' || character == 'F')) {
        return false;
    }
    return character > ' ' && character <= '~' && character != '=';
}

qint64 quotedPrintableSize(const QByteArray& text)
{
    const qint64 safe = std::count_if(text.begin(), text.end(), isSafe);
    const qint64 characters = safe + 3 * (text.size() - safe);
    return characters + characters / kLongestQuoted * 3; // "=" and a line end
}

QByteArray base64Lines(const QByteArray& bytes)
{
    QByteArray lines;
    lines.reserve(base64LinesSize(bytes.size()));
    for (qsizetype at = 0; at < bytes.size(); at += kBytesOfBase64Line) {
        lines += bytes.mid(at, kBytesOfBase64Line).toBase64();
        lines += "\r\n";
    }
    return lines;
}

qint64 base64LinesSize(qint64 bytes)
{
    const qint64 lines = (bytes + kBytesOfBase64Line - 1) / kBytesOfBase64Line;
    return (bytes + 2) / 3 * 4 + 2 * lines;
}

} // namespace mail
