#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace platform {

enum class DriveType { Unknown, Removable, Fixed, Network, Disc };

// A place where a file system begins, as a list of drives offers it.
struct Drive {
    QString path; // without a separator at its end; "/" stays
    DriveType type = DriveType::Unknown;
    QString volumeName = {}; // "" for one without a name, or not ready
    QString shareName = {};  // of a network drive: machine and folder
    bool isReady = false;
};

// "/", then each of mediaMounts().
std::vector<Drive> drives();

// The type of what is mounted at a path, by the name of its file system.
DriveType driveTypeOf(const QString& path, const QByteArray& fileSystem);

} // namespace platform
