#include "formats/mapped_file.h"

#include <algorithm>
#include <array>
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

// What the handler may look at: the addresses of a mapping, zero when the place is free. A second
// file is open at a time only if something reads one while it is being told of another's failure.
struct Mapping {
    volatile std::uintptr_t begin = 0;
    volatile std::uintptr_t end = 0;
};

std::array<Mapping, 4> s_mappings;
struct sigaction s_previous;

bool layZeroPages(void* fault, std::uintptr_t end)
{
    const auto address = reinterpret_cast<std::uintptr_t>(fault);
    const auto pageBytes = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const std::uintptr_t intoPage = address % pageBytes;
    void* const page = static_cast<std::byte*>(fault) - intoPage;
    return ::mmap(page, end - address + intoPage, PROT_READ,
                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED;
}

// Lays zero pages over the rest of a mapping, from the page that could not be had. A fault
// elsewhere is somebody else's: the former handler gets it when the access is tried again.
void onBusError(int, siginfo_t* info, void*)
{
    const int savedError = errno;
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    bool mended = false;
    for (const Mapping& mapping : s_mappings) {
        if (address >= mapping.begin && address < mapping.end) {
            mended = layZeroPages(info->si_addr, mapping.end);
        }
    }
    if (!mended) {
        ::sigaction(SIGBUS, &s_previous, nullptr);
    }
    errno = savedError;
}

bool isFree(const Mapping& mapping)
{
    return mapping.begin == 0;
}

bool allFree()
{
    return std::all_of(s_mappings.begin(), s_mappings.end(), isFree);
}

// False when all places are taken.
bool guard(std::span<const std::byte> bytes)
{
    const auto place = std::find_if(s_mappings.begin(), s_mappings.end(), isFree);
    if (place == s_mappings.end()) {
        return false;
    }
    if (allFree()) {
        struct sigaction action = {};
        action.sa_sigaction = onBusError;
        action.sa_flags = SA_SIGINFO;
        sigemptyset(&action.sa_mask);
        ::sigaction(SIGBUS, &action, &s_previous);
    }
    place->begin = reinterpret_cast<std::uintptr_t>(bytes.data());
    place->end = place->begin + bytes.size();
    return true;
}

void unguard(std::span<const std::byte> bytes)
{
    const auto begin = reinterpret_cast<std::uintptr_t>(bytes.data());
    for (Mapping& mapping : s_mappings) {
        if (mapping.begin == begin) {
            mapping.begin = 0;
            mapping.end = 0;
        }
    }
    if (allFree()) {
        ::sigaction(SIGBUS, &s_previous, nullptr);
    }
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
    const std::span bytes(static_cast<const std::byte*>(start), size);
    if (!guard(bytes)) {
        ::munmap(start, size);
        return std::nullopt;
    }
    return MappedFile(bytes);
}

MappedFile::MappedFile(std::span<const std::byte> bytes)
    : m_bytes(bytes)
{
}

MappedFile::MappedFile(MappedFile&& other) noexcept
    : m_bytes(std::exchange(other.m_bytes, {}))
{
}

MappedFile::~MappedFile()
{
    if (!m_bytes.empty()) {
        unguard(m_bytes);
        ::munmap(const_cast<std::byte*>(m_bytes.data()), m_bytes.size());
    }
}

} // namespace formats
