#include "print_helper/requests.h"

#include "print_helper/queue_jobs.h"
#include "print_helper/queue_paper.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <unistd.h>

namespace print_helper {

namespace {

int numberOf(const std::string& text)
{
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::optional<std::string> nextText(std::FILE& requests)
{
    char* bytes = nullptr;
    std::size_t room = 0;
    const ssize_t length = ::getdelim(&bytes, &room, '\0', &requests);
    std::optional<std::string> text;
    if (length > 0 && bytes[length - 1] == '\0') {
        text.emplace(bytes);
    }
    std::free(bytes); // getdelim() allocates it so
    return text;
}

std::optional<JobRequest> nextJob(std::FILE& requests)
{
    constexpr std::size_t kTexts = 6;
    std::array<std::string, kTexts> texts;
    for (std::string& text : texts) {
        auto next = nextText(requests);
        if (!next) {
            return std::nullopt;
        }
        text = std::move(*next);
    }
    return JobRequest{
        texts[0], texts[1], texts[2], {numberOf(texts[3]), numberOf(texts[4])}, numberOf(texts[5])};
}

const char* wordFor(JobEnd end)
{
    switch (end) {
    case JobEnd::Sent:
        return "sent\n";
    case JobEnd::Refused:
        return "refused\n";
    case JobEnd::Gone:
        break;
    }
    return "gone\n";
}

} // namespace

bool answerList(std::FILE& answers)
{
    const Connection service = connectToService();
    if (!service) {
        return false;
    }
    for (const QueueEntry& entry : allQueues(*service)) {
        std::fprintf(&answers, "%s%c%d%c", entry.name.c_str(), '\0', entry.isDefault ? 1 : 0, '\0');
    }
    return true;
}

bool answerPaper(const std::vector<std::string>& request, std::FILE& answers)
{
    constexpr std::size_t kTexts = 3;
    if (request.size() != kTexts) {
        return false;
    }
    const Connection service = connectToService();
    const Queue queue = service ? findQueue(*service, request[0]) : nullptr;
    if (!queue) {
        return false;
    }
    const auto rim = paperRim(*service, *queue, {numberOf(request[1]), numberOf(request[2])});
    if (rim) {
        std::fprintf(&answers, "%d %d %d %d %d", rim->left, rim->top, rim->right, rim->bottom,
                     rim->dotsPerInch);
    }
    return rim.has_value();
}

void sendAll(std::FILE& requests, std::FILE& answers)
{
    while (const auto job = nextJob(requests)) {
        const JobEnd end = sendJobs(*job);
        ::unlink(job->file.c_str());
        std::fputs(wordFor(end), &answers);
        std::fflush(&answers);
    }
}

} // namespace print_helper
