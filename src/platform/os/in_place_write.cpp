#include "platform/os/in_place_write.h"

#include "platform/os/descriptor.h"
#include "platform/os/disk.h"
#include "platform/os/paths.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int kMostCopies = 1000;
constexpr std::size_t kMostNameBytes = 200; // leaves room for the ending

bool overwrite(int file, int source)
{
    struct stat facts = {};
    return ::fstat(source, &facts) == 0 && ::lseek(source, 0, SEEK_SET) == 0 &&
           ::lseek(file, 0, SEEK_SET) == 0 && copyBytes(source, file) &&
           disk().truncate(file, facts.st_size) == 0 && flushToDisk(file) && closesWell(file);
}

// The bytes of a file, safe on the disk in the program's folder until they aren't needed any more.
class KeptCopy {
public:
    KeptCopy(const std::string& path, int file)
    {
        open(path);
        if (m_copy.isOpen() && !overwrite(m_copy.get(), file)) {
            remove();
        }
        if (m_copy.isOpen()) {
            flushFolder(folderPart(m_name));
        }
    }

    [[nodiscard]] bool isSafe() const { return m_copy.isOpen(); }
    [[nodiscard]] int descriptor() const { return m_copy.get(); }

    void remove()
    {
        if (isStillNamed(m_copy.get(), m_name)) {
            ::unlink(m_name.c_str());
        }
        m_copy.reset();
    }

private:
    void open(const std::string& path)
    {
        const std::string name = path.substr(folderPart(path).size(), kMostNameBytes);
        const std::string start =
            toNative(withSeparator(appPath())) + name + std::string(".before-save");
        for (int number = 1; number <= kMostCopies; ++number) {
            m_name = number == 1 ? start : start + "-" + std::to_string(number);
            m_copy = Descriptor(
                disk().open(m_name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, 0600));
            if (m_copy.isOpen() || errno != EEXIST) {
                return;
            }
        }
    }

    std::string m_name;
    Descriptor m_copy;
};

} // namespace

bool writeInPlace(int source, const std::string& target)
{
    const Descriptor file(
        disk().open(target, O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0));
    struct stat facts = {};
    if (!file.isOpen() || ::fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return false;
    }
    KeptCopy old(target, file.get());
    if (!old.isSafe()) {
        return false;
    }
    const bool isWritten = overwrite(file.get(), source);
    if (isWritten || overwrite(file.get(), old.descriptor())) {
        old.remove();
    }
    return isWritten;
}

} // namespace platform
