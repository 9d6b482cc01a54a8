#include "platform/os/system_memory.h"

#include <cstdint>
#include <unistd.h>

namespace platform {

int freeMemoryPercent()
{
    const std::int64_t all = sysconf(_SC_PHYS_PAGES);
    const std::int64_t available = sysconf(_SC_AVPHYS_PAGES);
    return all > 0 && available >= 0 ? static_cast<int>(available * 100 / all) : 0;
}

} // namespace platform
