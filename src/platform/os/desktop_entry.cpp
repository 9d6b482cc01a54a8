#include "platform/os/desktop_entry.h"

#include <utility>

namespace platform {

namespace {

QString unescaped(const QString& text)
{
    static const std::map<QChar, QChar> kEscapes = {
        {u's', u' '}, {u'n', u'\n'}, {u't', u'\t'}, {u'r', u'\r'}, {u'\\', u'\\'}};
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto escape =
            text[i] == u'\\' && i + 1 < text.size() ? kEscapes.find(text[i + 1]) : kEscapes.end();
        const bool isEscape = escape != kEscapes.end();
        plain += isEscape ? escape->second : text[i];
        i += isEscape ? 1 : 0;
    }
    return plain;
}

// From the most to the least particular: language and country with a variant, and each without.
QList<QByteArray> languagesOf(const QByteArray& locale)
{
    const qsizetype at = locale.indexOf('@');
    const QByteArray variant = at < 0 ? QByteArray() : locale.mid(at);
    QByteArray country = at < 0 ? locale : locale.left(at);
    country = country.left(country.indexOf('.') < 0 ? country.size() : country.indexOf('.'));
    const QByteArray language = country.split('_').first();
    return {country + variant, country, language + variant, language};
}

// The words of a launch line: blanks part them, double quotes hold them together, and a backslash
// inside of quotes takes the next character as it is. A quote that isn't closed makes it no line.
QStringList wordsOf(const QString& line)
{
    QStringList words;
    QString word;
    bool isQuoted = false;
    bool hasWord = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == u'"') {
            isQuoted = !isQuoted;
            hasWord = true;
        } else if (line[i] == u' ' && !isQuoted) {
            if (hasWord) {
                words.append(std::exchange(word, {}));
            }
            hasWord = false;
        } else {
            i += isQuoted && line[i] == u'\\' && i + 1 < line.size() ? 1 : 0;
            word += line[i];
            hasWord = true;
        }
    }
    if (hasWord) {
        words.append(word);
    }
    return isQuoted ? QStringList() : words;
}

} // namespace

DesktopEntry::DesktopEntry(const QByteArray& text)
{
    bool isInGroup = false;
    for (const QByteArray& line : text.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.startsWith('[')) {
            isInGroup = trimmed == "[Desktop Entry]";
            continue;
        }
        const qsizetype equals = trimmed.indexOf('=');
        if (isInGroup && equals > 0 && !trimmed.startsWith('#')) {
            m_values.emplace(trimmed.left(equals).trimmed(), trimmed.mid(equals + 1).trimmed());
        }
    }
}

QString DesktopEntry::value(const QByteArray& key) const
{
    const auto found = m_values.find(key);
    return found == m_values.end() ? QString() : unescaped(QString::fromUtf8(found->second));
}

QStringList DesktopEntry::list(const QByteArray& key) const
{
    return value(key).split(u';', Qt::SkipEmptyParts);
}

bool DesktopEntry::isTrue(const QByteArray& key) const
{
    return value(key) == u"true";
}

QString DesktopEntry::localValue(const QByteArray& key, const QByteArray& locale) const
{
    for (const QByteArray& language : languagesOf(locale)) {
        const QString text = value(key + '[' + language + ']');
        if (!text.isEmpty()) {
            return text;
        }
    }
    return value(key);
}

// Codes for files to open, and those that nobody uses any more, leave nothing behind.
QStringList launchLine(const DesktopEntry& entry, const QString& file)
{
    QStringList line;
    const QString icon = entry.value("Icon");
    for (const QString& word : wordsOf(entry.value("Exec"))) {
        if (word == u"%i") {
            line += icon.isEmpty() ? QStringList() : QStringList{QStringLiteral("--icon"), icon};
        } else if (word == u"%c") {
            line.append(entry.value("Name"));
        } else if (word == u"%k") {
            line.append(file);
        } else if (word.size() != 2 || word[0] != u'%') {
            line.append(QString(word).replace(QStringLiteral("%%"), QStringLiteral("%")));
        }
    }
    return line;
}

} // namespace platform
