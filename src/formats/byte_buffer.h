#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <iterator>
#include <memory>

namespace formats {

// Whether memory has been written before. The system zeroes fresh pages at the first touch, so that
// they are in the caches already when they are written.
enum class Memory { fresh, reused };

// A run of bytes that a picture lives in. It reads like a vector, but sizing it costs no pass over
// the memory: bytes that nobody has written are zero pages of the system, which take no room.
class ByteBuffer {
public:
    using value_type = std::uint8_t;
    using iterator = std::uint8_t*;
    using const_iterator = const std::uint8_t*;

    ByteBuffer() = default;
    ByteBuffer(std::initializer_list<std::uint8_t> bytes) { assign(bytes.begin(), bytes.end()); }
    ByteBuffer(const ByteBuffer& other) { assign(other.begin(), other.end()); }
    ByteBuffer(ByteBuffer&& other) noexcept { swap(other); }
    ByteBuffer& operator=(const ByteBuffer& other);
    ByteBuffer& operator=(ByteBuffer&& other) noexcept;
    ~ByteBuffer() = default;

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] bool empty() const { return m_size == 0; }
    [[nodiscard]] std::uint8_t* data() { return m_bytes.get(); }
    [[nodiscard]] const std::uint8_t* data() const { return m_bytes.get(); }
    [[nodiscard]] std::uint8_t& operator[](std::size_t index) { return m_bytes.get()[index]; }
    [[nodiscard]] const std::uint8_t& operator[](std::size_t index) const
    {
        return m_bytes.get()[index];
    }
    [[nodiscard]] Memory memory() const { return m_memory; }
    [[nodiscard]] iterator begin() { return data(); }
    [[nodiscard]] iterator end() { return data() + m_size; }
    [[nodiscard]] const_iterator begin() const { return data(); }
    [[nodiscard]] const_iterator end() const { return data() + m_size; }

    // Gives the buffer this many bytes, all zero. False when there is no memory; the buffer is
    // empty then.
    [[nodiscard]] bool resizeZeroed(std::size_t size);

    // The same with whatever the memory held, for a caller that writes every byte or calls zero()
    // for those it doesn't. Memory that the last picture has touched is used again.
    [[nodiscard]] bool resizeForOverwrite(std::size_t size);

    // Zeroes the bytes from the offset on. Long stretches give their pages back to the system.
    void zeroFrom(std::size_t offset);

    // New contents; the buffer is empty when there is no memory for them.
    template<std::forward_iterator Iterator> void assign(Iterator first, Iterator last);
    void assign(std::size_t count, std::uint8_t value);

    // Gives the memory back.
    void clear();
    void swap(ByteBuffer& other) noexcept;

private:
    struct Free {
        void operator()(std::uint8_t* bytes) const { std::free(bytes); }
    };

    std::unique_ptr<std::uint8_t, Free> m_bytes;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    Memory m_memory = Memory::fresh;
};

[[nodiscard]] bool operator==(const ByteBuffer& left, const ByteBuffer& right);

template<std::forward_iterator Iterator> void ByteBuffer::assign(Iterator first, Iterator last)
{
    if (!resizeForOverwrite(static_cast<std::size_t>(std::distance(first, last)))) {
        return;
    }
    std::copy(first, last, begin());
}

} // namespace formats
