#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace platform {

// Folders where media that come and go are mounted: under /media, /run/media/USER and /mnt, in the
// order of their names, each once.
QStringList mediaMounts();

// The same from a mount table's text (the format of /proc/self/mounts) for a user's name.
QStringList mediaMountsIn(const QByteArray& table, const QString& user);

// The part of a path that plays the role of a drive: the longest of the mounts that holds the path,
// else the home folder if that holds it, else "".
QString drivePrefixAmong(const QString& path, const QStringList& mounts, const QString& home);

} // namespace platform
