#include "formats/mapped_file.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace formats {

namespace {

// What the handler may look at: the mapping as addresses, zero when there is none.
volatile std::uintptr_t s_begin = 0;
volatile std::uintptr_t s_end = 0;
struct sigaction s_previous;

// Lays zero pages over the rest of the mapping, from the page that could not be had. A fault
// elsewhere is somebody else's: the former handler gets it when the access is tried again.
void onBusError(int, siginfo_t* info, void*)
{
    const int savedError = errno;
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    const auto pageBytes = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const std::uintptr_t page = address - address % pageBytes;
    const bool ours = address >= s_begin && address < s_end;
    if (!ours || ::mmap(reinterpret_cast<void*>(page), s_end - page, PROT_READ,
                        MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) == MAP_FAILED) {
        ::sigaction(SIGBUS, &s_previous, nullptr);
    }
    errno = savedError;
}

void guard(std::span<const std::byte> bytes)
{
    s_begin = reinterpret_cast<std::uintptr_t>(bytes.data());
    s_end = s_begin + bytes.size();
    struct sigaction action = {};
    action.sa_sigaction = onBusError;
    action.sa_flags = SA_SIGINFO;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGBUS, &action, &s_previous);
}

void unguard()
{
    ::sigaction(SIGBUS, &s_previous, nullptr);
    s_begin = 0;
    s_end = 0;
}

// Closes a descriptor when the scope ends.
class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }

    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number;
};

} // namespace

std::optional<MappedFile> MappedFile::open(const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat facts = {};
    if (file.number() < 0 || ::fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return std::nullopt;
    }
    if (facts.st_size == 0) {
        return MappedFile(std::span<const std::byte>());
    }
    const auto size = static_cast<std::size_t>(facts.st_size);
    void* const start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
    if (start == MAP_FAILED) {
        return std::nullopt;
    }
    return MappedFile(std::span(static_cast<const std::byte*>(start), size));
}

MappedFile::MappedFile(std::span<const std::byte> bytes)
    : m_bytes(bytes)
{
    if (!m_bytes.empty()) {
        guard(m_bytes);
    }
}

MappedFile::MappedFile(MappedFile&& other) noexcept
    : m_bytes(std::exchange(other.m_bytes, {}))
{
}

MappedFile::~MappedFile()
{
    if (!m_bytes.empty()) {
        unguard();
        ::munmap(const_cast<std::byte*>(m_bytes.data()), m_bytes.size());
    }
}

} // namespace formats
