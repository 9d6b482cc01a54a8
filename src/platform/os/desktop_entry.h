#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>

namespace platform {

// What a .desktop file says of a program: the values of its group [Desktop Entry].
class DesktopEntry {
public:
    explicit DesktopEntry(const QByteArray& text);

    // "" for a key that isn't there. In lists, ";" separates.
    [[nodiscard]] QString value(const QByteArray& key) const;
    [[nodiscard]] QStringList list(const QByteArray& key) const;
    [[nodiscard]] bool isTrue(const QByteArray& key) const;

    // The value in the language of a locale such as "de_AT.UTF-8", else the one without a language.
    [[nodiscard]] QString localValue(const QByteArray& key, const QByteArray& locale) const;

private:
    std::map<QByteArray, QByteArray> m_values;
};

// The program that an entry starts and its arguments, without a file to open; empty where it has
// none. The entry's own file is told to programs that ask for it.
[[nodiscard]] QStringList launchLine(const DesktopEntry& entry, const QString& file);

} // namespace platform
