// Stands before the C library's functions for memory, in the test programs that link this alone.

#include "support/scarce_memory.h"

#include <cerrno>
#include <cstddef>

namespace {

constexpr std::size_t kLargePiece = 500000;

struct State {
    bool isScarce = false;
    bool refusesOnlyOne = false;
    bool hasRefused = false;
    int given = 0;
};

State g_state;

bool refuses(std::size_t bytes)
{
    if (!g_state.isScarce || bytes < kLargePiece ||
        (g_state.hasRefused && g_state.refusesOnlyOne) || g_state.given-- > 0) {
        return false;
    }
    g_state.hasRefused = true;
    g_state.given = 0;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {

void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* memory, std::size_t bytes);
void* __libc_memalign(std::size_t alignment, std::size_t bytes);

void* malloc(std::size_t bytes)
{
    return refuses(bytes) ? nullptr : __libc_malloc(bytes);
}

void* calloc(std::size_t count, std::size_t bytes)
{
    return bytes != 0 && refuses(count * bytes) ? nullptr : __libc_calloc(count, bytes);
}

void* realloc(void* memory, std::size_t bytes)
{
    return refuses(bytes) ? nullptr : __libc_realloc(memory, bytes);
}

void* aligned_alloc(std::size_t alignment, std::size_t bytes)
{
    return refuses(bytes) ? nullptr : __libc_memalign(alignment, bytes);
}
}

namespace support {

ScarceMemory::ScarceMemory(int piecesGiven, Refusal refusal)
{
    g_state = {true, refusal == Refusal::One, false, piecesGiven};
}

ScarceMemory::~ScarceMemory()
{
    g_state = {};
}

bool ScarceMemory::hasRefused()
{
    return g_state.hasRefused;
}

} // namespace support
