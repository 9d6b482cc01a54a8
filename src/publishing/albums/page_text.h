#pragma once

#include <QByteArray>
#include <QString>

// The bytes of a page: one for each character up to U+00FF, and "&#n;" for the rest.
namespace albums {

// How a page names files and shows texts. Plain writes them as they are, so that a name with "#" or
// "&" leads nowhere. Encoded writes links with "%" and texts with references, in ASCII alone, so
// that they don't depend on the encoding that a browser takes the page for.
enum class Writing { Plain, Encoded };

// A text that may hold tags of its own, which stay.
[[nodiscard]] QByteArray markupBytes(const QString& markup, Writing writing);
[[nodiscard]] QByteArray textBytes(const QString& text, Writing writing);
// A path relative to the page.
[[nodiscard]] QByteArray linkBytes(const QString& path, Writing writing);

} // namespace albums
