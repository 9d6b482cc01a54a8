#include "platform/os/files.h"

#include "platform/os/descriptor.h"
#include "platform/os/disk.h"
#include "platform/os/folder_reader.h"
#include "platform/os/lock_file.h"
#include "platform/os/paths.h"
#include "platform/os/replacement_file.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

std::optional<struct stat> factsOf(const QString& path)
{
    struct stat facts = {};
    if (path.contains(QChar(u'\0')) || ::stat(toNative(path).c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return facts;
}

// Reads to the end, not to the size told before: a file may grow, and some tell no size at all.
std::optional<QByteArray> readToEnd(int descriptor, qint64 expected, qint64 maxBytes)
{
    constexpr qint64 kStep = 64 * 1024;
    QByteArray bytes;
    bytes.resize(std::min(expected, maxBytes) + 1);
    qint64 filled = 0;
    while (true) {
        const ssize_t got = ::read(descriptor, bytes.data() + filled,
                                   static_cast<std::size_t>(bytes.size() - filled));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        filled += got;
        if (filled > maxBytes) {
            return std::nullopt;
        }
        if (filled == bytes.size()) {
            bytes.resize(filled + kStep);
        }
    }
    bytes.resize(filled);
    return bytes;
}

// For a file system without a rename that spares a name: a link is never put in another's place.
// Where there are no links either, or none to what it is, the look before the rename has to do.
bool renameByLink(const std::string& from, const std::string& to)
{
    if (::link(from.c_str(), to.c_str()) == 0) {
        return ::unlink(from.c_str()) == 0 || (::unlink(to.c_str()), false);
    }
    struct stat facts = {};
    return errno != EEXIST && ::lstat(to.c_str(), &facts) != 0 && disk().rename(from, to) == 0;
}

} // namespace

std::unique_ptr<QFile> openForReading(const QString& path)
{
    Descriptor descriptor = openRegular(path, O_RDONLY);
    auto file = std::make_unique<QFile>();
    if (!descriptor.isOpen() ||
        !file->open(descriptor.get(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        return nullptr;
    }
    // The file closes the descriptor now.
    static_cast<void>(descriptor.release());
    return file;
}

std::optional<QByteArray> readFile(const QString& path, qint64 maxBytes)
{
    const Descriptor file = openRegular(path, O_RDONLY);
    struct stat facts = {};
    if (!file.isOpen() || ::fstat(file.get(), &facts) != 0 || facts.st_size > maxBytes) {
        return std::nullopt;
    }
    return readToEnd(file.get(), facts.st_size, maxBytes);
}

bool writeFileWhole(const QString& path, const QByteArray& bytes, Flush flush)
{
    ReplacementFile file(path);
    return file.isOpen() && writeAll(file.descriptor(), bytes.constData(), bytes.size()) &&
           file.commit(flush);
}

bool appendToFile(const QString& path, const QByteArray& bytes)
{
    const Descriptor lock = lockFor("append", path);
    const Descriptor file = openRegular(path, O_WRONLY | O_APPEND | O_CREAT);
    struct stat before = {};
    if (!file.isOpen() || ::fstat(file.get(), &before) != 0) {
        return false;
    }
    if (!writeAll(file.get(), bytes.constData(), bytes.size()) || !flushToDisk(file.get()) ||
        !closesWell(file.get())) {
        // Half a record would become the beginning of the next one.
        static_cast<void>(disk().truncate(file.get(), before.st_size));
        return false;
    }
    if (before.st_size == 0) {
        flushFolder(folderPart(toNative(canonicalPath(path).value_or(path))));
    }
    return true;
}

bool copyFile(const QString& from, const QString& to, Flush flush)
{
    const Descriptor source = openRegular(from, O_RDONLY);
    struct stat facts = {};
    if (!source.isOpen() || ::fstat(source.get(), &facts) != 0) {
        return false;
    }
    const auto target = factsOf(to);
    if (target && target->st_dev == facts.st_dev && target->st_ino == facts.st_ino) {
        return false;
    }
    ReplacementFile copy(to);
    if (!copy.isOpen() || !copyBytes(source.get(), copy.descriptor())) {
        return false;
    }
    const timespec times[] = {facts.st_atim, facts.st_mtim};
    ::futimens(copy.descriptor(), times);
    if (!copy.replaces()) {
        ::fchmod(copy.descriptor(), facts.st_mode & 0777U);
    }
    return copy.commit(flush);
}

bool renameFile(const QString& from, const QString& to)
{
    if (from.contains(QChar(u'\0')) || to.contains(QChar(u'\0'))) {
        return false;
    }
    const std::string oldName = toNative(from);
    const std::string newName = toNative(to);
    removeLeftovers(folderPart(newName));
    if (disk().renameToFree(oldName, newName) == 0) {
        return true;
    }
    return (errno == EINVAL || errno == ENOSYS) && renameByLink(oldName, newName);
}

bool removeFile(const QString& path)
{
    return !path.contains(QChar(u'\0')) && ::unlink(toNative(path).c_str()) == 0;
}

void removeFilesIn(const QString& folder)
{
    FolderReader entries(folder);
    if (!entries.isOpen()) {
        return;
    }
    while (entries.next()) {
        if (entries.isLink() || entries.kind() == EntryKind::File) {
            ::unlinkat(entries.descriptor(), entries.name(), 0);
        }
    }
}

bool makeFolder(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar(u'\0'))) {
        return false;
    }
    const std::string native = toNative(path);
    for (std::size_t end = native.find('/', 1); end != std::string::npos;
         end = native.find('/', end + 1)) {
        ::mkdir(native.substr(0, end).c_str(), 0777);
    }
    ::mkdir(native.c_str(), 0777);
    return isFolder(path);
}

bool isFolder(const QString& path)
{
    const auto facts = factsOf(path);
    return facts && S_ISDIR(facts->st_mode);
}

bool isRegularFile(const QString& path)
{
    const auto facts = factsOf(path);
    return facts && S_ISREG(facts->st_mode);
}

std::optional<qint64> fileSize(const QString& path)
{
    const auto facts = factsOf(path);
    if (!facts || !S_ISREG(facts->st_mode)) {
        return std::nullopt;
    }
    return facts->st_size;
}

} // namespace platform
