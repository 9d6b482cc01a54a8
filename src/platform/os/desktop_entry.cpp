#include "platform/os/desktop_entry.h"

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

} // namespace platform
