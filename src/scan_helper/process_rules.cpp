#include "scan_helper/process_rules.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace scan_helper {

namespace {

// A failure leaves the limit that was there before, which is no worse than none.
void lower(__rlimit_resource resource, rlim_t most)
{
    rlimit now{};
    if (::getrlimit(resource, &now) == 0) {
        now.rlim_cur = std::min(most, now.rlim_max);
        static_cast<void>(::setrlimit(resource, &now));
    }
}

} // namespace

int keepAnswersApart()
{
    const int answers = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 2);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    const bool isApart = answers >= 0 && nowhere >= 0 && ::dup2(nowhere, STDOUT_FILENO) >= 0;
    return isApart ? answers : -1;
}

void limitProcess()
{
    // The program that was to read the answers may have gone; writing then fails.
    std::signal(SIGPIPE, SIG_IGN);
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    lower(RLIMIT_CORE, 0);
#ifndef __SANITIZE_ADDRESS__ // which reserves terabytes of addresses for itself
    lower(RLIMIT_AS, rlim_t(2) << 30);
#endif
}

} // namespace scan_helper
