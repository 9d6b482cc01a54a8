#pragma once

#include <cstddef>
#include <fstream>
#include <unistd.h>

// Megabytes that this process holds in memory.
inline std::size_t residentMegabytes()
{
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) / (std::size_t{1} << 20U);
}
