#pragma once

#include <QFont>
#include <QString>

namespace files {

// A name in so many lines at most, none wider than so many pixels, with line separators between
// them. They break at blanks where there are some; what doesn't fit into the last one is left out.
[[nodiscard]] QString wrappedName(const QString& name, const QFont& font, int width, int lines);

} // namespace files
