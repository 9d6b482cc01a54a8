#pragma once

#include <QString>

// Private profile files: sections in brackets with one "key=value" a line. Nothing is cached: every
// read opens the file, so a change made by another process is seen at once.
namespace platform {

// The value of a key, cut at its first NUL and to 254 characters; the fallback when the file, the
// section or the key is missing. Section and key are matched without regard to case. Blanks around
// the value and one pair of quotes around it are dropped, as profile readers do. Where a section or
// a key stands twice, the first one that has the key counts.
QString readProfile(const QString& file, const QString& section, const QString& key,
                    const QString& fallback);

// Sets one key and leaves every other line, comments and unknown lines included, byte for byte as
// it was; makes file, section and key when they are missing. The new file is complete on disk when
// this returns, or the old one still stands: temporary file and rename, under a lock that keeps
// other writers of the program out. A value ends at its first NUL or line end, so that it can't add
// lines of its own. False when the file couldn't be read or written, which leaves it as it was.
bool writeProfile(const QString& file, const QString& section, const QString& key,
                  const QString& value);

} // namespace platform
