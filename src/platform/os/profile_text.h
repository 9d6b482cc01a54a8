#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// The text of a profile file, apart from where it is stored.
namespace platform {

// The bytes of a key's value, blanks around it dropped.
std::optional<QByteArrayView> profileValue(const QByteArray& text, const QString& section,
                                           const QString& key);

// The text with the key set. Other bytes stay as they are; a new line ends as the line before it
// does. Section, key and value are taken without the characters that can't stand in them.
QByteArray withProfileValue(const QByteArray& text, const QString& section, const QString& key,
                            const QString& value);

} // namespace platform
