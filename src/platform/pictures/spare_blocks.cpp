#include "platform/pictures/spare_blocks.h"

#include <algorithm>
#include <cstdlib>
#include <sys/mman.h>

namespace platform {

namespace {

// A picture's pixels before and after an edit.
constexpr std::size_t kMostBlocks = 2;
constexpr std::size_t kMostBytes = std::size_t{256} << 20U;

bool suits(const SpareBlocks::Block& block, std::size_t bytes)
{
    return block.bytes >= bytes && block.bytes - bytes <= bytes / 8;
}

} // namespace

SpareBlocks::~SpareBlocks()
{
    for (const Block& block : m_blocks) {
        std::free(block.memory);
    }
}

SpareBlocks::Block SpareBlocks::take(std::size_t bytes)
{
    const std::size_t wholePages = (bytes + kLargePage - 1) / kLargePage * kLargePage;
    // The last one given is the likeliest to be in the processor's caches.
    const auto found =
        std::find_if(m_blocks.rbegin(), m_blocks.rend(),
                     [wholePages](const Block& block) { return suits(block, wholePages); });
    if (found != m_blocks.rend()) {
        const Block block = *found;
        m_blocks.erase(std::next(found).base());
        return block;
    }
    void* memory = std::aligned_alloc(kLargePage, wholePages);
    if (memory == nullptr) {
        return {};
    }
    // Only a hint: without large pages the memory is as good as any.
    ::madvise(memory, wholePages, MADV_HUGEPAGE);
    return {memory, wholePages};
}

void SpareBlocks::give(Block block)
{
    if (block.bytes > kMostBytes) {
        std::free(block.memory);
        return;
    }
    while (!m_blocks.empty() &&
           (m_blocks.size() >= kMostBlocks || keptBytes() + block.bytes > kMostBytes)) {
        std::free(m_blocks.front().memory);
        m_blocks.erase(m_blocks.begin());
    }
    ::madvise(block.memory, block.bytes, MADV_FREE);
    m_blocks.push_back(block);
}

std::size_t SpareBlocks::keptBytes() const
{
    std::size_t bytes = 0;
    for (const Block& block : m_blocks) {
        bytes += block.bytes;
    }
    return bytes;
}

} // namespace platform
