#include "platform/os/drives.h"

#include "platform/os/mounts.h"

#include <QStorageInfo>
#include <algorithm>
#include <array>
#include <string_view>

namespace platform {

namespace {

struct FileSystem {
    std::string_view name;
    DriveType type;
};

constexpr std::array kFileSystems{
    FileSystem{"nfs", DriveType::Network},        FileSystem{"nfs4", DriveType::Network},
    FileSystem{"cifs", DriveType::Network},       FileSystem{"smb3", DriveType::Network},
    FileSystem{"smbfs", DriveType::Network},      FileSystem{"afs", DriveType::Network},
    FileSystem{"ceph", DriveType::Network},       FileSystem{"9p", DriveType::Network},
    FileSystem{"davfs", DriveType::Network},      FileSystem{"fuse.davfs", DriveType::Network},
    FileSystem{"fuse.sshfs", DriveType::Network}, FileSystem{"fuse.rclone", DriveType::Network},
    FileSystem{"iso9660", DriveType::Disc},       FileSystem{"udf", DriveType::Disc},
};

// Under these the desktop mounts what is plugged in; under /mnt an administrator does.
constexpr const char* kPluggedIn[] = {"/media/", "/run/media/"};

Drive driveAt(const QString& path)
{
    const QStorageInfo storage(path);
    Drive drive;
    drive.path = path;
    drive.type = driveTypeOf(path, storage.fileSystemType());
    // A process that is locked into a folder finds no mount for its root, which is there all the
    // same.
    drive.isReady = path == QLatin1String("/") || (storage.isValid() && storage.isReady());
    drive.volumeName = storage.name();
    if (drive.type == DriveType::Network) {
        drive.shareName = QString::fromUtf8(storage.device());
    }
    return drive;
}

} // namespace

DriveType driveTypeOf(const QString& path, const QByteArray& fileSystem)
{
    const std::string_view name(fileSystem.constData(),
                                static_cast<std::size_t>(fileSystem.size()));
    const auto known = std::find_if(kFileSystems.begin(), kFileSystems.end(),
                                    [&](const FileSystem& row) { return row.name == name; });
    if (known != kFileSystems.end()) {
        return known->type;
    }
    const bool isPluggedIn =
        std::any_of(std::begin(kPluggedIn), std::end(kPluggedIn),
                    [&](const char* root) { return path.startsWith(QLatin1String(root)); });
    return isPluggedIn ? DriveType::Removable : DriveType::Fixed;
}

std::vector<Drive> drives()
{
    std::vector<Drive> found = {driveAt(QStringLiteral("/"))};
    for (const QString& mount : mediaMounts()) {
        found.push_back(driveAt(mount));
    }
    return found;
}

} // namespace platform
