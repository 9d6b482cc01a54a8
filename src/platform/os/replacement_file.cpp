#include "platform/os/replacement_file.h"

#include "platform/os/disk.h"
#include "platform/os/file_rights.h"
#include "platform/os/folder_reader.h"
#include "platform/os/in_place_write.h"
#include "platform/os/paths.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QSysInfo>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// The first names are the same ones each time, so that what a dead writer left under them is found
// without a look through the folder. Where they are all taken, further ones are made up.
constexpr int kFixedNames = 8;
constexpr int kMostNames = 200;

// A lock on a shared folder may count on one machine only, so each keeps to names of its own.
const std::string& nameStart()
{
    static const std::string start = [] {
        QByteArray machine = QSysInfo::machineUniqueId();
        if (machine.isEmpty()) {
            machine = QSysInfo::machineHostName().toUtf8();
        }
        const QByteArray hash =
            QCryptographicHash::hash("vistara" + machine, QCryptographicHash::Sha1);
        return ".vistara-new-" + hash.toHex().left(8).toStdString() + "-";
    }();
    return start;
}

std::string temporaryName(int number)
{
    if (number < kFixedNames) {
        return nameStart() + std::to_string(number);
    }
    return nameStart() + std::to_string(::getpid()) + "-" +
           std::to_string(QRandomGenerator::global()->generate());
}

bool removeLeftover(const std::string& name)
{
    const Descriptor leftover(
        disk().open(name, O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY, 0));
    struct stat facts = {};
    return leftover.isOpen() && ::fstat(leftover.get(), &facts) == 0 && S_ISREG(facts.st_mode) &&
           facts.st_uid == ::geteuid() && disk().lock(leftover.get()) == 0 &&
           isStillNamed(leftover.get(), name) && ::unlink(name.c_str()) == 0;
}

// The file itself may well be written where its folder refuses this.
bool isFoldersRefusal(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

// Without this folder a file that has no name can't be given one.
bool canNameOpenFiles()
{
    static const bool can = ::access("/proc/self/fd", X_OK) == 0;
    return can;
}

} // namespace

Standing standingAt(const std::string& name)
{
    struct stat facts = {};
    if (::stat(name.c_str(), &facts) != 0) {
        return Standing::Nothing;
    }
    const bool isReplaceable =
        S_ISREG(facts.st_mode) && ::faccessat(AT_FDCWD, name.c_str(), W_OK, AT_EACCESS) == 0;
    return isReplaceable ? Standing::Replaceable : Standing::Refused;
}

void removeLeftovers(const std::string& folder)
{
    FolderReader entries(folder.empty() ? QStringLiteral(".") : fromNative(folder));
    while (entries.isOpen() && entries.next()) {
        if (std::string_view(entries.name()).starts_with(nameStart())) {
            static_cast<void>(removeLeftover(folder + entries.name()));
        }
    }
}

ReplacementFile::ReplacementFile(const QString& target, Replacing replacing)
    : m_replacing(replacing)
{
    if (target.contains(QChar(u'\0')) || target.isEmpty()) {
        return;
    }
    m_target = behindLinks(toNative(target));
    const Standing standing = standingAt(m_target);
    if (m_target.empty() || standing == Standing::Refused) {
        return;
    }
    m_replaces = standing == Standing::Replaceable;
    openBeside();
    if (!m_replaces || m_replacing == Replacing::TheFile) {
        return;
    }
    if (isOpen()) {
        takeRights(m_file.get(), m_target);
    } else if (isFoldersRefusal(errno)) {
        openElsewhere();
    }
}

ReplacementFile::~ReplacementFile()
{
    if (isOpen() && !m_temporary.empty() && isStillNamed(m_file.get(), m_temporary)) {
        ::unlink(m_temporary.c_str());
    }
}

// Nobody looks into a file before it has its rights.
mode_t ReplacementFile::mode() const
{
    return m_replaces || m_replacing == Replacing::TheFile ? 0600 : 0666;
}

void ReplacementFile::openBeside()
{
    const std::string folder = folderPart(m_target);
    if (!openUnnamed(folder) && !isFoldersRefusal(errno)) {
        static_cast<void>(openNamed(folder));
    }
}

void ReplacementFile::openElsewhere()
{
    const std::string folder = toNative(withSeparator(appPath()));
    m_isElsewhere = openUnnamed(folder) || openNamed(folder);
}

// What has no name leaves nothing when its writer dies.
bool ReplacementFile::openUnnamed(const std::string& folder)
{
    errno = EOPNOTSUPP;
    if (canNameOpenFiles()) {
        m_file = Descriptor(
            disk().open(folder.empty() ? "." : folder, O_TMPFILE | O_RDWR | O_CLOEXEC, mode()));
    }
    return m_file.isOpen();
}

bool ReplacementFile::openNamed(const std::string& folder)
{
    return takeFreeName(folder, [this](const std::string& name) { return tryName(name); });
}

bool ReplacementFile::tryName(const std::string& name)
{
    Descriptor file(disk().open(name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, mode()));
    if (!file.isOpen()) {
        return false;
    }
    // Until it is locked another process may take it for a leftover. Where there are no locks,
    // nobody does.
    const bool isLost = disk().lock(file.get()) != 0 && errno == EWOULDBLOCK;
    if (isLost || !isStillNamed(file.get(), name)) {
        errno = EEXIST;
        return false;
    }
    m_file = std::move(file);
    return true;
}

// Takes one name after the other until one was free; errno tells why none could be had.
bool ReplacementFile::takeFreeName(const std::string& folder,
                                   const std::function<bool(const std::string&)>& take)
{
    for (int number = 0; number < kMostNames; ++number) {
        const std::string name = folder + temporaryName(number);
        bool isTaken = take(name);
        if (!isTaken && errno != EEXIST) {
            return false;
        }
        if (isTaken || (removeLeftover(name) && take(name))) {
            m_temporary = name;
            return true;
        }
    }
    errno = EEXIST;
    return false;
}

bool ReplacementFile::commit(Flush flush)
{
    if (!m_isElsewhere && flush == Flush::ToDisk && !flushToDisk(m_file.get())) {
        return false;
    }
    if (!closesWell(m_file.get())) {
        return false;
    }
    if (m_isElsewhere) {
        return writeInPlace(m_file.get(), m_target);
    }
    if (rename()) {
        if (flush == Flush::ToDisk) {
            flushFolder(folderPart(m_target));
        }
        return true;
    }
    return m_replaces && m_replacing == Replacing::TheBytes && isFoldersRefusal(errno) &&
           writeInPlace(m_file.get(), m_target);
}

bool ReplacementFile::rename()
{
    if (m_temporary.empty()) {
        if (!m_replaces && disk().link(m_file.get(), m_target) == 0) {
            return true;
        }
        // Locked before it has a name, so that nobody takes it for a leftover.
        static_cast<void>(disk().lock(m_file.get()));
        if (!takeFreeName(folderPart(m_target), [this](const std::string& name) {
                return disk().link(m_file.get(), name) == 0;
            })) {
            return false;
        }
    }
    if (!isStillNamed(m_file.get(), m_temporary)) {
        errno = ENOENT;
        return false;
    }
    if (disk().rename(m_temporary, m_target) != 0) {
        return false;
    }
    m_temporary.clear();
    return true;
}

} // namespace platform
