#include "platform/os/replacement_file.h"

#include "platform/os/disk.h"
#include "platform/os/file_rights.h"
#include "platform/os/in_place_write.h"
#include "platform/os/paths.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QSysInfo>
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int kMostLinks = 40; // as many as the system follows

// The first names are the same ones each time, so that what a dead writer left under them is found
// without a look through the folder. Where they are all taken, further ones are made up.
constexpr int kFixedNames = 8;
constexpr int kMostNames = 200;

// The path that a link tells, seen from where the link stands; nothing for what is no link.
std::optional<std::string> linkTarget(const std::string& link)
{
    std::array<char, PATH_MAX> text{};
    const ssize_t length = ::readlink(link.c_str(), text.data(), text.size());
    if (length <= 0 || static_cast<std::size_t>(length) == text.size()) {
        return std::nullopt;
    }
    const std::string target(text.data(), static_cast<std::size_t>(length));
    return target.front() == '/' ? target : folderPart(link) + target;
}

// The file that a path leads to through links, whether it is there already or not. "" for links
// that lead in a circle.
std::string resolved(std::string path)
{
    for (int links = 0; links <= kMostLinks; ++links) {
        const std::optional<std::string> next = linkTarget(path);
        if (!next) {
            return path;
        }
        path = *next;
    }
    return {};
}

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

// Removes a temporary file whose writer has died: one of this user's that nobody has locked. Where
// the file system knows no locks that can't be told, and it stays.
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

ReplacementFile::ReplacementFile(const QString& target)
{
    if (target.contains(QChar(u'\0')) || target.isEmpty()) {
        return;
    }
    m_target = resolved(toNative(target));
    if (m_target.empty()) {
        return;
    }
    struct stat facts = {};
    if (::stat(m_target.c_str(), &facts) == 0) {
        // A name can be replaced without any right to the file; who locked the file meant both.
        if (!S_ISREG(facts.st_mode) ||
            ::faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) != 0) {
            return;
        }
        m_replaces = true;
    }
    openBeside();
    if (isOpen() && m_replaces) {
        takeRights(m_file.get(), m_target);
    } else if (m_replaces && isFoldersRefusal(errno)) {
        openElsewhere();
    }
}

ReplacementFile::~ReplacementFile()
{
    if (isOpen() && !m_temporary.empty() && isStillNamed(m_file.get(), m_temporary)) {
        ::unlink(m_temporary.c_str());
    }
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
        m_file = Descriptor(disk().open(folder.empty() ? "." : folder,
                                        O_TMPFILE | O_RDWR | O_CLOEXEC, m_replaces ? 0600 : 0666));
    }
    return m_file.isOpen();
}

bool ReplacementFile::openNamed(const std::string& folder)
{
    return takeFreeName(folder, [this](const std::string& name) { return tryName(name); });
}

bool ReplacementFile::tryName(const std::string& name)
{
    Descriptor file(disk().open(name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY,
                                m_replaces ? 0600 : 0666));
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
    return m_replaces && isFoldersRefusal(errno) && writeInPlace(m_file.get(), m_target);
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
