#include "formats/byte_buffer.h"

#include <algorithm>
#include <cstring>
#include <sys/mman.h>
#include <utility>

namespace formats {

namespace {

// Below this size a fill is cheaper than a call into the system.
constexpr std::size_t kLargeBytes = std::size_t{4} << 20U;

constexpr std::uintptr_t kPageBytes = 4096;

// The whole pages inside a stretch of memory, as start and byte count.
std::pair<std::uint8_t*, std::size_t> wholePages(std::uint8_t* bytes, std::size_t count)
{
    const auto address = reinterpret_cast<std::uintptr_t>(bytes);
    const std::size_t lead = (kPageBytes - address % kPageBytes) % kPageBytes;
    if (count < lead) {
        return {bytes, 0};
    }
    return {bytes + lead, (count - lead) / kPageBytes * kPageBytes};
}

} // namespace

ByteBuffer& ByteBuffer::operator=(const ByteBuffer& other)
{
    if (this != &other) {
        assign(other.begin(), other.end());
    }
    return *this;
}

ByteBuffer& ByteBuffer::operator=(ByteBuffer&& other) noexcept
{
    ByteBuffer taken(std::move(other));
    swap(taken);
    return *this;
}

bool ByteBuffer::resizeZeroed(std::size_t size)
{
    if (size < kLargeBytes && size <= m_capacity) {
        if (!resizeForOverwrite(size)) {
            return false;
        }
        zeroFrom(0);
        return true;
    }
    clear();
    return resizeForOverwrite(size);
}

bool ByteBuffer::resizeForOverwrite(std::size_t size)
{
    const bool fits = size <= m_capacity;
    const bool wasteful = m_capacity > kLargeBytes && size < m_capacity / 2;
    if (fits && !wasteful) {
        m_size = size;
        m_memory = Memory::reused;
        return true;
    }
    clear();
    if (size == 0) {
        return true;
    }
    // The old memory is gone before the new is asked for, so that two pictures never stand side by
    // side. calloc takes large sizes from the system as untouched zero pages.
    m_bytes.reset(static_cast<std::uint8_t*>(std::calloc(size, 1)));
    if (!m_bytes) {
        return false;
    }
    m_size = size;
    m_capacity = size;
    if (size >= kLargeBytes) {
        const auto [start, count] = wholePages(m_bytes.get(), size);
        // Only a matter of speed: without large pages the first pass over the picture takes twice
        // as long.
        static_cast<void>(::madvise(start, count, MADV_HUGEPAGE));
    }
    return true;
}

void ByteBuffer::zeroFrom(std::size_t offset)
{
    if (offset >= m_size) {
        return;
    }
    std::uint8_t* const first = data() + offset;
    const std::size_t count = m_size - offset;
    const auto [start, pageBytes] = wholePages(first, count);
    if (count < kLargeBytes || ::madvise(start, pageBytes, MADV_DONTNEED) != 0) {
        std::memset(first, 0, count);
        return;
    }
    std::fill(first, start, std::uint8_t{0});
    std::fill(start + pageBytes, first + count, std::uint8_t{0});
}

void ByteBuffer::assign(std::size_t count, std::uint8_t value)
{
    if (resizeForOverwrite(count)) {
        std::fill(begin(), end(), value);
    }
}

void ByteBuffer::clear()
{
    m_bytes.reset();
    m_size = 0;
    m_capacity = 0;
    m_memory = Memory::fresh;
}

void ByteBuffer::swap(ByteBuffer& other) noexcept
{
    std::swap(m_bytes, other.m_bytes);
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_memory, other.m_memory);
}

bool operator==(const ByteBuffer& left, const ByteBuffer& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end());
}

} // namespace formats
