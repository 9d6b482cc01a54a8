#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace formats {

// Packs codes of changing width into the data blocks of a GIF image: lowest bit first, cut into
// blocks of at most 255 bytes, each behind its length.
class GifBlockWriter {
public:
    explicit GifBlockWriter(std::vector<std::byte>& file);

    void put(std::uint32_t code, unsigned width);
    // Writes what is left and the empty block that ends the sequence. Nothing may follow.
    void finish();

private:
    void flushWholeBlocks();

    static constexpr std::size_t kBlockBytes = 255;
    static constexpr std::size_t kStagedBytes = kBlockBytes * 32;

    std::vector<std::byte>& m_file;
    // Codes gather here without gaps; a put may write eight bytes although fewer of them count.
    std::array<std::byte, kStagedBytes + 16> m_staged{};
    std::size_t m_stagedCount = 0;
    std::uint64_t m_bits = 0;
    unsigned m_bitCount = 0;
};

// Compresses eight-bit pixels into GIF's variable width LZW codes.
//
// Every string of the dictionary is a longer string's prefix plus one pixel. It lives in the slot
// of a hash table that its prefix's slot and its last pixel lead to, so that following a known
// string touches one table entry a pixel and needs no code number until the string ends.
class GifLzwEncoder {
public:
    explicit GifLzwEncoder(std::vector<std::byte>& file);

    // Adds pixels in picture order, in pieces of any length.
    void add(std::span<const std::byte> pixels);
    // Ends the image's data. At least one pixel must have been added.
    void finish();

private:
    void clear();
    void learn(std::uint32_t slot, std::uint32_t key);

    static constexpr unsigned kSlotBits = 15;
    static constexpr std::uint32_t kSlots = 1U << kSlotBits;
    // The strings of one pixel have slots of their own behind the table.
    static constexpr std::uint32_t kFirstPixelSlot = kSlots;
    static constexpr std::uint32_t kNoSlot = ~0U;

    GifBlockWriter m_blocks;
    // Prefix slot and last pixel of the string in each slot, plus one; 0 is an empty slot.
    std::vector<std::uint32_t> m_keys;
    std::vector<std::uint16_t> m_codes;
    std::uint32_t m_prefix = kNoSlot;
    std::uint32_t m_nextFree = 0;
    std::uint32_t m_threshold = 0;
    unsigned m_width = 0;
};

} // namespace formats
