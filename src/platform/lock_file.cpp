#include "platform/lock_file.h"

#include "platform/paths.h"

#include <QCryptographicHash>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
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

std::string lockFolder()
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

std::optional<std::string> canonical(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::optional<std::string>(real.get()) : std::nullopt;
}

// Every way to write a path leads to one text, also while its last part doesn't exist.
std::string identity(const QString& path)
{
    if (const auto whole = canonical(toNative(path))) {
        return *whole;
    }
    const auto folder = canonical(toNative(folderOf(path)));
    return folder ? toNative(joinPath(fromNative(*folder), fileNameOf(path))) : toNative(path);
}

} // namespace

Descriptor openLockFile(const char* purpose, const QString& path)
{
    const std::string folder = lockFolder();
    if (folder.empty()) {
        return {};
    }
    const QByteArray hash = QCryptographicHash::hash(QByteArray::fromStdString(identity(path)),
                                                     QCryptographicHash::Sha1)
                                .toHex();
    const std::string name = folder + "/" + purpose + "-" + hash.toStdString() + ".lock";
    return openDescriptor(fromNative(name), O_RDWR | O_CREAT | O_NOFOLLOW, 0600);
}

} // namespace platform
