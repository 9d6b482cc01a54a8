#include "platform/desktop/file_filters.h"

namespace platform {

namespace {

QStringList patternsOf(const QString& text)
{
    QStringList patterns;
    for (const QString& part : text.split(u';', Qt::SkipEmptyParts)) {
        const QString pattern = part.trimmed();
        // Such a pattern asks for a dot in no system that came later.
        patterns.append(pattern == u"*.*" ? QStringLiteral("*") : pattern);
    }
    return patterns;
}

} // namespace

std::vector<FileFilter> parseFileFilters(const QString& filters)
{
    const QStringList parts = filters.split(u'|');
    std::vector<FileFilter> result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QStringList patterns = patternsOf(parts[i + 1]);
        if (!patterns.isEmpty()) {
            result.push_back({parts[i], patterns});
        }
    }
    return result;
}

} // namespace platform
