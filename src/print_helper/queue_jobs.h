#pragma once

#include "print_helper/queue_paper.h"

#include <string>

namespace print_helper {

struct JobRequest {
    std::string queue;
    std::string title;
    std::string file; // a PDF
    PaperSize paper;  // upright
    int copies = 1;   // jobs
};

enum class JobEnd { Sent, Gone, Refused };

// Ends at the first job that fails. The file stays. A service that doesn't answer at all ends the
// process.
[[nodiscard]] JobEnd sendJobs(const JobRequest& request);

} // namespace print_helper
