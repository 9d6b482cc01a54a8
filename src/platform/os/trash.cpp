#include "platform/os/trash.h"

#include "platform/os/descriptor.h"
#include "platform/os/file_url.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QDateTime>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr const char* kRecordEnding = ".trashinfo";
constexpr int kMostNames = 10000;

// Bytes that a name in the trash may have, so that it and its record fit with a number behind it.
constexpr std::size_t kMostNameBytes = 255 - 10 - 6;

std::optional<struct stat> linkFacts(const QString& path)
{
    struct stat facts = {};
    if (path.contains(QChar(u'\0')) || ::lstat(toNative(path).c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return facts;
}

QString resolvedFolder(const QString& folder)
{
    return canonicalPath(folder).value_or(folder);
}

bool makePrivateFolder(const QString& folder)
{
    makeFolder(folderOf(folder));
    ::mkdir(toNative(folder).c_str(), 0700);
    return isFolder(folder);
}

bool isOnDevice(const QString& folder, dev_t device)
{
    const auto facts = linkFacts(resolvedFolder(folder));
    return facts && facts->st_dev == device;
}

// The trash at the top of a file system. The folder that an administrator made for everybody counts
// only if it is what it should be; else somebody could have put it there.
QString trashAtTop(const QString& top)
{
    const QString user = QString::number(::getuid());
    const QString shared = joinPath(top, QStringLiteral(".Trash"));
    const auto facts = linkFacts(shared);
    if (facts && S_ISDIR(facts->st_mode) && (facts->st_mode & S_ISVTX) != 0) {
        return joinPath(shared, user);
    }
    return joinPath(top, QStringLiteral(".Trash-") + user);
}

QByteArray recordOf(const QString& path)
{
    const QString now =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddThh:mm:ss"));
    return "[Trash Info]\nPath=" + percentEncoded(path) + "\nDeletionDate=" + now.toLatin1() + "\n";
}

std::string nameInTrash(const QString& path, int number)
{
    const std::string name = toNative(fileNameOf(path)).substr(0, kMostNameBytes);
    return number == 1 ? name : name + "." + std::to_string(number);
}

enum class Outcome { Done, NameTaken, Failed };

// The record comes first: it takes the name, so that two programs never use the same one.
Outcome trashUnder(const QString& path, const QString& trash, const std::string& name,
                   const QByteArray& record)
{
    const QString recordPath =
        joinPath(trash, QStringLiteral("info/") + fromNative(name + kRecordEnding));
    {
        const Descriptor file = openDescriptor(recordPath, O_WRONLY | O_CREAT | O_EXCL, 0600);
        if (!file.isOpen()) {
            return errno == EEXIST ? Outcome::NameTaken : Outcome::Failed;
        }
        if (!writeAll(file.get(), record.constData(), record.size())) {
            removeFile(recordPath);
            return Outcome::Failed;
        }
    }
    const QString target = joinPath(trash, QStringLiteral("files/") + fromNative(name));
    if (linkFacts(target)) {
        removeFile(recordPath);
        return Outcome::NameTaken;
    }
    if (std::rename(toNative(path).c_str(), toNative(target).c_str()) != 0) {
        removeFile(recordPath);
        return Outcome::Failed;
    }
    return Outcome::Done;
}

} // namespace

bool trashInto(const QString& path, const QString& trash, const QString& topFolder)
{
    if (!makePrivateFolder(trash) || !makePrivateFolder(joinPath(trash, QStringLiteral("files"))) ||
        !makePrivateFolder(joinPath(trash, QStringLiteral("info")))) {
        return false;
    }
    const QString start = withSeparator(topFolder);
    const bool isRelative = !topFolder.isEmpty() && path.startsWith(start);
    const QByteArray record = recordOf(isRelative ? path.mid(start.size()) : path);
    for (int number = 1; number <= kMostNames; ++number) {
        const Outcome outcome = trashUnder(path, trash, nameInTrash(path, number), record);
        if (outcome != Outcome::NameTaken) {
            return outcome == Outcome::Done;
        }
    }
    return false;
}

QString topFolderOf(const QString& path)
{
    QString top = resolvedFolder(folderOf(path));
    auto facts = linkFacts(top);
    while (facts && top.size() > 1) {
        const QString parent = folderOf(top);
        const auto parentFacts = linkFacts(parent);
        if (!parentFacts || parentFacts->st_dev != facts->st_dev) {
            break;
        }
        top = parent;
    }
    return top;
}

bool trashFile(const QString& path)
{
    const QString plain = withoutSeparator(path);
    const auto facts = linkFacts(plain);
    if (!facts || !plain.startsWith(u'/') || plain.size() == 1) {
        return false;
    }
    const QString real = joinPath(resolvedFolder(folderOf(plain)), fileNameOf(plain));
    const QString trash = joinPath(userDataFolder(), QStringLiteral("Trash"));
    if (makePrivateFolder(trash) && isOnDevice(trash, facts->st_dev)) {
        return trashInto(real, trash, QString());
    }
    const QString top = topFolderOf(real);
    return trashInto(real, trashAtTop(top), top);
}

} // namespace platform
