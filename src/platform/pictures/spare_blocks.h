#pragma once

#include <cstddef>
#include <vector>

namespace platform {

// Large blocks of memory that are given back to be taken again. The system clears a new block
// before it hands it out, which costs as much as filling it; a block that comes again is written at
// once. While a block lies here the system may take its pages whenever memory is short. Used inside
// this folder only.
class SpareBlocks {
public:
    SpareBlocks() = default;
    ~SpareBlocks();
    SpareBlocks(const SpareBlocks&) = delete;
    SpareBlocks& operator=(const SpareBlocks&) = delete;

    struct Block {
        void* memory = nullptr; // begins with a large page
        std::size_t bytes = 0;
    };

    static constexpr std::size_t kLargePage = std::size_t{2} << 20U;

    // A block of at least this size, and not much more; null where there is no memory.
    [[nodiscard]] Block take(std::size_t bytes);

    // Keeps the block, or frees it or older ones where too much would lie here.
    void give(Block block);

    [[nodiscard]] std::size_t keptBytes() const;

private:
    std::vector<Block> m_blocks; // the oldest first
};

} // namespace platform
