#include "platform/os/wildcards.h"

#include <QStringList>
#include <algorithm>

namespace platform {

namespace {

// Walks both texts once; where they part, the last "*" takes one character more.
bool matchesGeneral(QStringView pattern, QStringView name)
{
    qsizetype p = 0;
    qsizetype n = 0;
    qsizetype starAt = -1;
    qsizetype starEnd = 0; // up to here the star's text goes
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starAt = p++;
            starEnd = n;
        } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (starAt >= 0) {
            p = starAt + 1;
            n = ++starEnd;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*') {
        ++p;
    }
    return p == pattern.size();
}

} // namespace

Wildcards::Wildcards(const QString& patterns)
{
    for (const QString& part : patterns.split(u';')) {
        const QString text = part.trimmed();
        if (!text.isEmpty()) {
            m_patterns.push_back(prepared(text));
        }
    }
    if (m_patterns.empty()) {
        m_patterns.push_back({Kind::Everything, {}});
    }
}

Wildcards Wildcards::single(const QString& pattern)
{
    Wildcards wildcards;
    wildcards.m_patterns.push_back(prepared(pattern));
    return wildcards;
}

Wildcards::Pattern Wildcards::prepared(const QString& text)
{
    if (text == u"*" || text == u"*.*") {
        return {Kind::Everything, {}};
    }
    const QString folded = text.toCaseFolded();
    const QString rest = folded.mid(1);
    if (folded.startsWith(u'*') && !rest.contains(u'*') && !rest.contains(u'?')) {
        return {Kind::Ending, rest};
    }
    return {Kind::General, folded};
}

bool Wildcards::matchesOne(const Pattern& pattern, const QString& name)
{
    switch (pattern.kind) {
    case Kind::Everything:
        return true;
    case Kind::Ending:
        return name.endsWith(pattern.text);
    case Kind::General:
        break;
    }
    return matchesGeneral(pattern.text, name);
}

bool Wildcards::matchesFolded(const QString& name) const
{
    return std::any_of(m_patterns.begin(), m_patterns.end(),
                       [&](const Pattern& pattern) { return matchesOne(pattern, name); });
}

} // namespace platform
