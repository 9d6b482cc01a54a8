#include "platform/os/mounts.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <pwd.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr qint64 kMostTableBytes = qint64(16) << 20;

// The table writes blanks, tabs, line ends and backslashes as three octal digits.
std::string unescaped(const QByteArray& field)
{
    const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
    std::string text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && isOctal(field[i + 1]) &&
            isOctal(field[i + 2]) && isOctal(field[i + 3])) {
            const int code =
                (field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0');
            text += static_cast<char>(code);
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

QString userName()
{
    const passwd* const user = ::getpwuid(::getuid());
    return user != nullptr ? fromNative(user->pw_name) : QString();
}

} // namespace

QStringList mediaMountsIn(const QByteArray& table, const QString& user)
{
    QStringList roots = {QStringLiteral("/media"), QStringLiteral("/mnt")};
    if (!user.isEmpty()) {
        roots.append(QStringLiteral("/run/media/") + user);
    }
    QStringList mounts;
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 2) {
            continue;
        }
        const QString folder = fromNative(unescaped(fields[1]));
        for (const QString& root : roots) {
            if (holdsPath(root, folder) && !mounts.contains(folder)) {
                mounts.append(folder);
            }
        }
    }
    mounts.sort();
    return mounts;
}

QStringList mediaMounts()
{
    const auto table = readFile(QStringLiteral("/proc/self/mounts"), kMostTableBytes);
    return table ? mediaMountsIn(*table, userName()) : QStringList();
}

QString drivePrefixAmong(const QString& path, const QStringList& mounts, const QString& home)
{
    QString longest;
    for (const QString& mount : mounts) {
        if (holdsPath(mount, path) && mount.size() > longest.size()) {
            longest = mount;
        }
    }
    if (!longest.isEmpty()) {
        return longest;
    }
    const bool isHomeUseful = home.size() > 1;
    return isHomeUseful && holdsPath(home, path) ? home : QString();
}

} // namespace platform
