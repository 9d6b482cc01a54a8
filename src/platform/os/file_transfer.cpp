#include "platform/os/file_transfer.h"

#include "platform/os/descriptor.h"
#include "platform/os/disk.h"
#include "platform/os/file_rights.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/os/replacement_file.h"

#include <QByteArray>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::size_t kStep = std::size_t(1) << 20;

// As many bytes go to the disk while as many others are copied, so that the wait at the end is
// short.
constexpr qint64 kPortion = qint64(32) << 20;

bool sameFile(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool leadsTo(const std::string& path, const struct stat& file)
{
    struct stat facts = {};
    return ::stat(path.c_str(), &facts) == 0 && sameFile(facts, file);
}

// The file that is transferred, open, as it was found.
class Source {
public:
    explicit Source(const QString& path)
        : m_path(toNative(path))
        , m_file(openRegular(path, O_RDONLY))
    {
        if (m_file.isOpen() && ::fstat(m_file.get(), &m_facts) != 0) {
            m_file.reset();
        }
    }

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    [[nodiscard]] int descriptor() const { return m_file.get(); }
    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] qint64 size() const { return m_facts.st_size; }
    [[nodiscard]] bool isAt(const std::string& path) const { return leadsTo(path, m_facts); }
    [[nodiscard]] bool isLink() const { return behindLinks(m_path) != m_path; }

    [[nodiscard]] bool hasChanged() const
    {
        struct stat now = {};
        return ::fstat(m_file.get(), &now) != 0 || now.st_size != m_facts.st_size ||
               now.st_mtim.tv_sec != m_facts.st_mtim.tv_sec ||
               now.st_mtim.tv_nsec != m_facts.st_mtim.tv_nsec;
    }

    // The copy stays private when another file has taken the name meanwhile.
    void giveFactsTo(int copy) const
    {
        if (isAt(m_path)) {
            takeRights(copy, behindLinks(m_path));
        }
        const timespec times[] = {m_facts.st_atim, m_facts.st_mtim};
        ::futimens(copy, times);
    }

    [[nodiscard]] bool canGo() const
    {
        const std::string folder = folderPart(m_path);
        return ::faccessat(AT_FDCWD, folder.empty() ? "." : folder.c_str(), W_OK | X_OK,
                           AT_EACCESS) == 0;
    }
    [[nodiscard]] bool remove() const { return isAt(m_path) && ::unlink(m_path.c_str()) == 0; }

private:
    std::string m_path;
    Descriptor m_file;
    struct stat m_facts = {};
};

// The bytes of one file on their way into another, which is empty.
class Stream {
public:
    Stream(const Source& source, int target, Flush flush)
        : m_source(source)
        , m_target(target)
        , m_flush(flush)
    {
    }

    // Whether all bytes that the source had at first have arrived.
    [[nodiscard]] bool run(const TransferProgress& progress)
    {
        if (!isWanted(progress)) {
            return false;
        }
        if (disk().clone(m_source.descriptor(), m_target) == 0) {
            m_done = ::lseek(m_target, 0, SEEK_END);
            return isWhole() && isWanted(progress);
        }
        qint64 got = 0;
        while ((got = step()) > 0) {
            m_done += got;
            sendToDisk();
            if (!isWanted(progress)) {
                return false;
            }
        }
        return got == 0 && isWhole();
    }

private:
    // The source may grow, and goes on to its end then.
    [[nodiscard]] bool isWanted(const TransferProgress& progress) const
    {
        return !progress || progress(m_done, std::max(m_done, m_source.size()));
    }

    [[nodiscard]] bool isWhole() const { return m_done >= m_source.size(); }

    // Waits for the portion before and begins with the one that has come together. What fails here
    // is told by the flush at the end.
    void sendToDisk()
    {
        if (m_flush == Flush::No || m_done - m_sent < kPortion) {
            return;
        }
        if (m_sent > 0) {
            ::sync_file_range(m_target, 0, m_sent,
                              SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE |
                                  SYNC_FILE_RANGE_WAIT_AFTER);
        }
        ::sync_file_range(m_target, m_sent, m_done - m_sent, SYNC_FILE_RANGE_WRITE);
        m_sent = m_done;
    }

    // How many bytes went over; 0 at the end, less when it fails.
    [[nodiscard]] qint64 step()
    {
        if (m_block.isEmpty()) {
            const ssize_t got = disk().copyRange(m_source.descriptor(), m_target, kStep);
            if (got > 0) {
                return got;
            }
            // Some file systems refuse, and some tell an end that isn't one.
            m_block.resize(kStep);
        }
        return stepByBlock();
    }

    [[nodiscard]] qint64 stepByBlock()
    {
        ssize_t got = -1;
        do {
            got = ::read(m_source.descriptor(), m_block.data(), kStep);
        } while (got < 0 && errno == EINTR);
        return got > 0 && !writeAll(m_target, m_block.constData(), got) ? -1 : got;
    }

    const Source& m_source;
    int m_target;
    Flush m_flush;
    QByteArray m_block; // empty while the system copies
    qint64 m_done = 0;
    qint64 m_sent = 0;
};

// Removing what a dead writer left comes first, since it may take the room.
std::string preparedTarget(const QString& to)
{
    std::string target = to.contains(QChar(u'\0')) ? "" : behindLinks(toNative(to));
    removeLeftovers(folderPart(target));
    return target;
}

enum class Afterwards { SourceStays, SourceGoes };

bool copySource(const Source& source, const QString& to, const TransferProgress& progress,
                Afterwards afterwards)
{
    ReplacementFile copy(to, Replacing::TheFile);
    // A new file that a disk loses late is still where it came from.
    const bool mayLose = afterwards == Afterwards::SourceGoes || copy.replaces();
    const Flush flush = mayLose ? Flush::ToDisk : Flush::No;
    if (!copy.isOpen() || !Stream(source, copy.descriptor(), flush).run(progress)) {
        return false;
    }
    if (afterwards == Afterwards::SourceGoes && source.hasChanged()) {
        return false;
    }
    source.giveFactsTo(copy.descriptor());
    return copy.commit(flush);
}

} // namespace

bool copyTo(const QString& from, const QString& to, const TransferProgress& progress)
{
    const Source source(from);
    const std::string target = preparedTarget(to);
    return source.isOpen() && !source.isAt(target) &&
           copySource(source, to, progress, Afterwards::SourceStays);
}

bool moveTo(const QString& from, const QString& to, const TransferProgress& progress)
{
    const Source source(from);
    const std::string target = preparedTarget(to);
    if (!source.isOpen() || target.empty() || source.isAt(target) ||
        standingAt(target) == Standing::Refused) {
        return false;
    }
    if (!source.isLink()) {
        if (disk().rename(source.path(), target) == 0) {
            return true;
        }
        if (errno != EXDEV) {
            return false;
        }
    }
    return source.canGo() && copySource(source, to, progress, Afterwards::SourceGoes) &&
           source.remove();
}

} // namespace platform
