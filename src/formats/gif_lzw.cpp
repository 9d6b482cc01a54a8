#include "formats/gif_lzw.h"

#include <algorithm>
#include <cstring>

namespace formats {

namespace {

constexpr unsigned kPixelBits = 8;
constexpr unsigned kWidestCode = 12;
constexpr std::uint32_t kClearCode = 1U << kPixelBits;
constexpr std::uint32_t kEndCode = kClearCode + 1;

} // namespace

GifBlockWriter::GifBlockWriter(std::vector<std::byte>& file)
    : m_file(file)
{
}

void GifBlockWriter::put(std::uint32_t code, unsigned width)
{
    m_bits |= std::uint64_t{code} << m_bitCount;
    m_bitCount += width;
    for (std::size_t i = 0; i < 4; ++i) {
        m_staged[m_stagedCount + i] = static_cast<std::byte>(m_bits >> (8 * i));
    }
    const unsigned whole = m_bitCount / 8;
    m_stagedCount += whole;
    m_bits >>= whole * 8;
    m_bitCount %= 8;
    if (m_stagedCount >= kStagedBytes) {
        flushWholeBlocks();
    }
}

void GifBlockWriter::flushWholeBlocks()
{
    std::size_t at = 0;
    for (; m_stagedCount - at >= kBlockBytes; at += kBlockBytes) {
        m_file.push_back(static_cast<std::byte>(kBlockBytes));
        const auto block = std::span(m_staged).subspan(at, kBlockBytes);
        m_file.insert(m_file.end(), block.begin(), block.end());
    }
    const auto rest = std::span(m_staged).subspan(at, m_stagedCount - at);
    std::copy(rest.begin(), rest.end(), m_staged.begin());
    m_stagedCount = rest.size();
}

void GifBlockWriter::finish()
{
    if (m_bitCount > 0) {
        m_staged[m_stagedCount++] = static_cast<std::byte>(m_bits);
    }
    m_bitCount = 0;
    flushWholeBlocks();
    if (m_stagedCount > 0) {
        m_file.push_back(static_cast<std::byte>(m_stagedCount));
        const auto block = std::span(m_staged).first(m_stagedCount);
        m_file.insert(m_file.end(), block.begin(), block.end());
    }
    m_file.push_back(std::byte{0});
}

GifLzwEncoder::GifLzwEncoder(std::vector<std::byte>& file)
    : m_blocks(file)
    , m_keys(kSlots)
    , m_codes(kSlots + kClearCode)
    , m_width(kPixelBits + 1)
{
    for (std::uint32_t pixel = 0; pixel < kClearCode; ++pixel) {
        m_codes[kFirstPixelSlot + pixel] = static_cast<std::uint16_t>(pixel);
    }
    clear();
}

void GifLzwEncoder::clear()
{
    m_blocks.put(kClearCode, m_width);
    m_width = kPixelBits + 1;
    m_threshold = 1U << m_width;
    m_nextFree = kEndCode + 1;
    std::fill(m_keys.begin(), m_keys.end(), 0U);
}

void GifLzwEncoder::learn(std::uint32_t slot, std::uint32_t key)
{
    m_keys[slot] = key;
    m_codes[slot] = static_cast<std::uint16_t>(m_nextFree);
    ++m_nextFree;
    if (m_nextFree <= m_threshold) {
        return;
    }
    if (m_width >= kWidestCode) {
        clear();
        return;
    }
    ++m_width;
    m_threshold *= 2;
}

void GifLzwEncoder::add(std::span<const std::byte> pixels)
{
    // An odd multiplier spreads neighbouring colours over the table.
    static constexpr std::uint32_t kPixelSpread = 0x2F1B;
    if (pixels.empty()) {
        return;
    }
    if (m_prefix == kNoSlot) {
        m_prefix = kFirstPixelSlot + std::to_integer<std::uint32_t>(pixels.front());
        pixels = pixels.subspan(1);
    }
    std::uint32_t prefix = m_prefix;
    const std::span<const std::uint32_t> keys = m_keys;
    for (const std::byte value : pixels) {
        const auto pixel = std::to_integer<std::uint32_t>(value);
        const std::uint32_t key = ((prefix << kPixelBits) | pixel) + 1;
        std::uint32_t slot = (prefix * 3 + pixel * kPixelSpread) % kSlots;
        while (keys[slot] != key && keys[slot] != 0) {
            slot = (slot + 1) % kSlots;
        }
        if (keys[slot] == key) {
            prefix = slot;
            continue;
        }
        m_blocks.put(m_codes[prefix], m_width);
        learn(slot, key);
        prefix = kFirstPixelSlot + pixel;
    }
    m_prefix = prefix;
}

void GifLzwEncoder::finish()
{
    m_blocks.put(m_codes[m_prefix], m_width);
    m_blocks.put(kEndCode, m_width);
    m_blocks.finish();
}

} // namespace formats
