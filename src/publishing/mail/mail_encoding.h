#pragma once

#include <QByteArray>
#include <QString>
#include <utility>

// How text and bytes travel in a mail of seven-bit lines.
namespace mail {

[[nodiscard]] bool isAscii(const QByteArray& text);

// Words of a head line. What isn't plain ASCII, or can't be folded, goes as encoded words of UTF-8;
// long texts are folded.
[[nodiscard]] QByteArray headWords(const QString& text);

// A name ahead of an address: in double quotes, or as encoded words where it isn't plain ASCII or
// is too long for a line.
[[nodiscard]] QByteArray nameWords(const QString& text);

// A name as a parameter of a head line: name="..." in ASCII, else name*=UTF-8''...
[[nodiscard]] QByteArray headParameter(const QByteArray& name, const QString& value);

// A text as quoted-printable, piece by piece: lines of at most 76 characters, CR LF behind each,
// and none of them begins with a dot.
class QuotedPrintable {
public:
    explicit QuotedPrintable(QByteArray text)
        : m_text(std::move(text))
    {
    }
    // Around so many bytes more; empty at the end.
    [[nodiscard]] QByteArray next(qsizetype about);

private:
    void addLineEnd(QByteArray& to);
    void addCharacter(QByteArray& to);
    [[nodiscard]] bool isLineEnd(qsizetype at) const;
    [[nodiscard]] bool goesAsItIs(char character) const;

    QByteArray m_text;
    qsizetype m_at = 0;
    qsizetype m_column = 0;
};

// How many bytes a text becomes as quoted-printable, near the truth.
[[nodiscard]] qint64 quotedPrintableSize(const QByteArray& text);

inline constexpr qsizetype kBytesOfBase64Line = 57; // they become 76 characters

// Lines of base64, CR LF behind each. Only the last piece of something may be no multiple of
// kBytesOfBase64Line.
[[nodiscard]] QByteArray base64Lines(const QByteArray& bytes);
[[nodiscard]] qint64 base64LinesSize(qint64 bytes);

} // namespace mail
