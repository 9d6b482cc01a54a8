#include "formats/run_length.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace formats {

namespace {

using Input = std::span<const std::byte>;
using Output = std::span<std::uint8_t>;

constexpr std::size_t kBlock = 16;
constexpr std::size_t kWord = sizeof(std::uint64_t);

std::uint8_t byteAt(Input in, std::size_t index)
{
    return std::to_integer<std::uint8_t>(in[index]);
}

// Copies count bytes in whole blocks, so up to a block more than asked for.
inline void copyBlocks(const std::byte* from, std::uint8_t* to, std::size_t count)
{
    for (std::size_t i = 0; i < count; i += kBlock) {
        std::memcpy(to + i, from + i, kBlock);
    }
}

// Fills count bytes in whole blocks.
inline void fillBlocks(std::uint8_t* to, std::uint8_t value, std::size_t count)
{
    for (std::size_t i = 0; i < count; i += kBlock) {
        std::memset(to + i, value, kBlock);
    }
}

// The bulk loop of both byte run schemes. The longest packet and the last block of its copy fit
// behind the position as long as the room below remains.
template<std::uint8_t kLastLiteral>
std::size_t unpackByteRuns(Input in, std::size_t& position, Output out)
{
    constexpr std::size_t kRoom = 160;
    std::size_t written = 0;
    while (position + kRoom <= in.size() && written + kRoom <= out.size()) {
        const std::uint8_t head = byteAt(in, position);
        if (head <= kLastLiteral) {
            const std::size_t count = head + std::size_t{1};
            copyBlocks(in.data() + position + 1, out.data() + written, count);
            position += count + 1;
            written += count;
        } else if (head == 128) {
            ++position;
        } else {
            const std::size_t count = 257 - std::size_t{head};
            fillBlocks(out.data() + written, byteAt(in, position + 1), count);
            position += 2;
            written += count;
        }
    }
    return written;
}

// Eight input bytes as a number whose lowest byte comes first.
inline std::uint64_t wordAt(Input in, std::size_t index)
{
    std::uint64_t word = 0;
    std::memcpy(&word, in.data() + index, kWord);
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    return word;
}

// The top bit of each byte whose two top bits are set.
inline std::uint64_t markersOf(std::uint64_t word)
{
    return word & (word << 1U) & 0x8080808080808080U;
}

inline bool isMarker(std::uint8_t byte)
{
    return byte >= 0xC0;
}

} // namespace

bool PackBits::open(Input in, std::size_t& position, Packet& packet)
{
    while (position < in.size() && byteAt(in, position) == 128) {
        ++position;
    }
    if (position >= in.size()) {
        return false;
    }
    const std::uint8_t head = byteAt(in, position++);
    if (head < 128) {
        packet = {head + std::size_t{1}, true, 0};
        return true;
    }
    if (position >= in.size()) {
        return false;
    }
    packet = {257 - std::size_t{head}, false, byteAt(in, position++)};
    return true;
}

std::size_t PackBits::unpack(Input in, std::size_t& position, Output out)
{
    return unpackByteRuns<127>(in, position, out);
}

bool ByteRun::open(Input in, std::size_t& position, Packet& packet)
{
    if (position + 1 >= in.size()) {
        return false;
    }
    const std::uint8_t head = byteAt(in, position++);
    if (head <= 128) {
        packet = {head + std::size_t{1}, true, 0};
    } else {
        packet = {257 - std::size_t{head}, false, byteAt(in, position++)};
    }
    return true;
}

std::size_t ByteRun::unpack(Input in, std::size_t& position, Output out)
{
    return unpackByteRuns<128>(in, position, out);
}

bool PcxRuns::open(Input in, std::size_t& position, Packet& packet)
{
    if (position > in.size()) {
        return false;
    }
    const auto byteOrZero = [&](std::size_t index) {
        return index < in.size() ? byteAt(in, index) : std::uint8_t{0};
    };
    const std::uint8_t head = byteOrZero(position++);
    if (isMarker(head)) {
        packet = {head & std::size_t{0x3F}, false, byteOrZero(position++)};
    } else {
        packet = {1, false, head};
    }
    return true;
}

std::size_t PcxRuns::unpack(Input in, std::size_t& position, Output out)
{
    // A word of literals or a run in whole blocks, each written behind at most seven literals.
    constexpr std::size_t kInRoom = kWord + 2;
    constexpr std::size_t kOutRoom = 64 + kWord;
    std::size_t written = 0;
    const auto hasRoom = [&] {
        return position + kInRoom <= in.size() && written + kOutRoom <= out.size();
    };
    while (hasRoom()) {
        const std::uint64_t word = wordAt(in, position);
        const std::uint64_t markers = markersOf(word);
        std::memcpy(out.data() + written, in.data() + position, kWord);
        const std::size_t literals =
            markers == 0 ? kWord : static_cast<std::size_t>(std::countr_zero(markers)) / 8;
        position += literals;
        written += literals;
        if (literals == kWord) {
            continue;
        }
        // Runs come in rows: where one pixel is bright, its neighbours are.
        std::uint8_t head = byteAt(in, position);
        do {
            const std::size_t count = head & 0x3FU;
            fillBlocks(out.data() + written, byteAt(in, position + 1), count);
            position += 2;
            written += count;
            head = byteAt(in, position);
        } while (isMarker(head) && hasRoom());
    }
    return written;
}

template<typename Scheme> std::size_t RunStream<Scheme>::fill(Output out)
{
    std::size_t written = 0;
    while (written < out.size()) {
        if (m_packet.count == 0) {
            written += Scheme::unpack(m_in, m_position, out.subspan(written));
            if (!openPacket()) {
                break;
            }
        }
        const std::size_t count = available(out.size() - written);
        const Output target = out.subspan(written, count);
        if (m_packet.literal) {
            std::memcpy(target.data(), m_in.data() + m_position, count);
        } else {
            std::fill(target.begin(), target.end(), m_packet.value);
        }
        take(count);
        written += count;
        if (m_packet.literal && m_packet.count > 0 && m_position >= m_in.size()) {
            break;
        }
    }
    return written;
}

template<typename Scheme> std::size_t RunStream<Scheme>::skip(std::size_t count)
{
    std::size_t passed = 0;
    while (passed < count) {
        if (m_packet.count == 0 && !openPacket()) {
            break;
        }
        const std::size_t step = available(count - passed);
        take(step);
        passed += step;
        if (m_packet.literal && m_packet.count > 0 && m_position >= m_in.size()) {
            break;
        }
    }
    return passed;
}

template<typename Scheme> bool RunStream<Scheme>::openPacket()
{
    return Scheme::open(m_in, m_position, m_packet);
}

// How many of the wanted bytes the packet at hand can give.
template<typename Scheme> std::size_t RunStream<Scheme>::available(std::size_t count) const
{
    const std::size_t wanted = std::min(count, m_packet.count);
    return m_packet.literal ? std::min(wanted, m_in.size() - m_position) : wanted;
}

template<typename Scheme> void RunStream<Scheme>::take(std::size_t count)
{
    m_packet.count -= count;
    if (m_packet.literal) {
        m_position += count;
    }
}

template class RunStream<PackBits>;
template class RunStream<ByteRun>;
template class RunStream<PcxRuns>;

} // namespace formats
