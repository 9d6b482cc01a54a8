#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace formats {

// A piece of a run-length stream: either count bytes that follow in the input, or one value that
// many times.
struct Packet {
    std::size_t count = 0;
    bool literal = false;
    std::uint8_t value = 0;
};

// The schemes of the file formats. Each says how the next packet is opened and holds the loop that
// unpacks in bulk:
//   open     moves the position behind the packet's head; false where the stream ends
//   unpack   writes whole packets while input and output have ample room, moves the position and
//            returns the bytes written; what it leaves behind them in out is undefined

// PackBits as layered-image files use it: 0 to 127 starts 1 to 128 literal bytes, 129 to 255 a run
// of 128 down to 2, and 128 is skipped.
struct PackBits {
    static bool open(std::span<const std::byte> in, std::size_t& position, Packet& packet);
    static std::size_t unpack(std::span<const std::byte> in, std::size_t& position,
                              std::span<std::uint8_t> out);
};

// The same in chunky interchange files, where 128 starts 129 literal bytes and the last byte of the
// input never starts a packet.
struct ByteRun {
    static bool open(std::span<const std::byte> in, std::size_t& position, Packet& packet);
    static std::size_t unpack(std::span<const std::byte> in, std::size_t& position,
                              std::span<std::uint8_t> out);
};

// PCX: a byte with its two top bits set is a count (0 to 63) for the byte behind it, any other byte
// stands for itself. One zero byte counts as part of the input behind its end.
struct PcxRuns {
    static bool open(std::span<const std::byte> in, std::size_t& position, Packet& packet);
    static std::size_t unpack(std::span<const std::byte> in, std::size_t& position,
                              std::span<std::uint8_t> out);
};

// Unpacks a stream piece by piece. The input must outlive it.
template<typename Scheme> class RunStream {
public:
    explicit RunStream(std::span<const std::byte> in, std::size_t position = 0)
        : m_in(in)
        , m_position(position)
    {
    }

    // Writes the next bytes of the stream and returns their number, which is smaller than the size
    // of out only if the stream has ended; the rest of out is undefined then.
    std::size_t fill(std::span<std::uint8_t> out);

    // Passes over the next bytes and returns their number in the same way.
    std::size_t skip(std::size_t count);

    // Bytes of the packet at hand that haven't been taken out yet.
    [[nodiscard]] std::size_t pending() const { return m_packet.count; }

    // Index of the next input byte.
    [[nodiscard]] std::size_t position() const { return m_position; }

private:
    bool openPacket();
    std::size_t available(std::size_t count) const;
    void take(std::size_t count);

    std::span<const std::byte> m_in;
    std::size_t m_position;
    Packet m_packet;
};

extern template class RunStream<PackBits>;
extern template class RunStream<ByteRun>;
extern template class RunStream<PcxRuns>;

} // namespace formats
