#include "metafile_helper/process_limits.h"

#include <csignal>
#include <sys/resource.h>

namespace metafile_helper {

namespace {

struct Limit {
    __rlimit_resource resource;
    rlim_t most;
};

constexpr rlim_t kMegabyte = rlim_t(1) << 20;

constexpr Limit kLimits[] = {
#ifndef __SANITIZE_ADDRESS__ // which reserves terabytes of addresses for itself
    {RLIMIT_AS, 1024 * kMegabyte},
#endif
    {RLIMIT_CPU, 5},     // seconds
    {RLIMIT_NOFILE, 64}, // fonts and their lists
    {RLIMIT_FSIZE, 0},
    {RLIMIT_CORE, 0},
};

} // namespace

bool limitProcess()
{
    // Font libraries like to write down what they found. They are told that it didn't work.
    std::signal(SIGXFSZ, SIG_IGN);
    bool all = true;
    for (const Limit& limit : kLimits) {
        const rlimit value{limit.most, limit.most};
        all = ::setrlimit(limit.resource, &value) == 0 && all;
    }
    return all;
}

} // namespace metafile_helper
