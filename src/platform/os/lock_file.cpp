#include "platform/os/lock_file.h"

#include "platform/os/paths.h"

#include <QCryptographicHash>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// A folder that others can write to would let them swap the lock.
bool isPrivateFolder(const std::string& folder)
{
    struct stat facts = {};
    return ::lstat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
           facts.st_uid == ::getuid() && (facts.st_mode & 0077U) == 0;
}

} // namespace

std::string privateFolder()
{
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && runtime[0] == '/') {
        const std::string folder = std::string(runtime) + "/vistara";
        ::mkdir(folder.c_str(), 0700);
        if (isPrivateFolder(folder)) {
            return folder;
        }
    }
    const std::string folder = "/tmp/vistara-" + std::to_string(::getuid());
    ::mkdir(folder.c_str(), 0700);
    return isPrivateFolder(folder) ? folder : std::string();
}

namespace {

// Every way to write a path leads to one text, also while its last part doesn't exist.
QString identity(const QString& path)
{
    if (const auto whole = canonicalPath(path)) {
        return *whole;
    }
    const auto folder = canonicalPath(folderOf(path));
    return folder ? joinPath(*folder, fileNameOf(path)) : path;
}

} // namespace

Descriptor openLockFile(const char* purpose, const QString& path)
{
    const std::string folder = privateFolder();
    if (folder.empty()) {
        return {};
    }
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(toNative(identity(path))),
                                 QCryptographicHash::Sha1)
            .toHex();
    const std::string name = folder + "/" + purpose + "-" + hash.toStdString() + ".lock";
    return openDescriptor(fromNative(name), O_RDWR | O_CREAT | O_NOFOLLOW, 0600);
}

Descriptor lockFor(const char* purpose, const QString& path)
{
    Descriptor file = openLockFile(purpose, path);
    while (file.isOpen() && ::flock(file.get(), LOCK_EX) != 0) {
        if (errno != EINTR) {
            return {};
        }
    }
    return file;
}

} // namespace platform
