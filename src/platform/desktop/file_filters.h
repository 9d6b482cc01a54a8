#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace platform {

// One line of a file dialog's list of kinds.
struct FileFilter {
    QString text;         // as shown, such as "BMP (*.BMP)"
    QStringList patterns; // such as "*.bmp"; "*" for every name
};

// From pairs of text and patterns separated by "|", patterns by ";". A text without patterns at the
// end, and a pair without text and patterns, are left out.
std::vector<FileFilter> parseFileFilters(const QString& filters);

} // namespace platform
