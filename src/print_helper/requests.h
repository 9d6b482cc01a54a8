#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace print_helper {

// Requests are texts, each with a zero byte behind it.

// The system's queues: for each its name and "1" for the default one or "0". False where there is
// no printing service.
[[nodiscard]] bool answerList(std::FILE& answers);

// For a queue's name and the size of a paper: left, top, right and bottom of its rim and the pixels
// in an inch, as numbers with blanks between them. False where the printer doesn't tell.
[[nodiscard]] bool answerPaper(const std::vector<std::string>& request, std::FILE& answers);

// Sends what comes until the input ends: queue, title, file, width and height of the paper, number
// of jobs. Each file is removed once it is sent or refused, and answered by a line: "sent", "gone"
// or "refused".
void sendAll(std::FILE& requests, std::FILE& answers);

} // namespace print_helper
