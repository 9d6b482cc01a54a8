#include "metafile_helper/process_limits.h"

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

namespace metafile_helper {

namespace {

struct Limit {
    __rlimit_resource resource;
    rlim_t most;
    rlim_t grace = 0; // on top of it until the system ends the process by force
};

constexpr rlim_t kMegabyte = rlim_t(1) << 20;

constexpr Limit kLimits[] = {
#ifndef __SANITIZE_ADDRESS__ // which reserves terabytes of addresses for itself
    {RLIMIT_AS, 1024 * kMegabyte},
#endif
    {RLIMIT_CPU, 5, 1},  // seconds
    {RLIMIT_NOFILE, 64}, // fonts and their lists
    {RLIMIT_FSIZE, 0},
    {RLIMIT_CORE, 0},
};

// Whoever started this process may have allowed it less already, and nobody gets that raised.
bool lower(const Limit& limit)
{
    rlimit now{};
    if (::getrlimit(limit.resource, &now) != 0) {
        return false;
    }
    const rlimit wanted{std::min(limit.most, now.rlim_max),
                        std::min(limit.most + limit.grace, now.rlim_max)};
    return ::setrlimit(limit.resource, &wanted) == 0;
}

} // namespace

bool limitProcess()
{
    // Font libraries like to write down what they found. They are told that it didn't work.
    std::signal(SIGXFSZ, SIG_IGN);
    bool all = true;
    for (const Limit& limit : kLimits) {
        all = lower(limit) && all;
    }
    return all;
}

} // namespace metafile_helper
