#pragma once

#include <cstddef>
#include <fstream>
#include <string>
#include <unistd.h>

// Megabytes that this process holds in memory.
inline std::size_t residentMegabytes()
{
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) / (std::size_t{1} << 20U);
}

// The most that it has held since forgetPeakMemory(), zero if the system doesn't say.
inline std::size_t peakMegabytes()
{
    std::ifstream facts("/proc/self/status");
    std::string name;
    while (facts >> name) {
        if (name == "VmHWM:") {
            std::size_t kilobytes = 0;
            facts >> kilobytes;
            return kilobytes / 1024;
        }
    }
    return 0;
}

inline void forgetPeakMemory()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}
