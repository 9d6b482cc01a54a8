#include "print_helper/queue_jobs.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <unistd.h>

namespace print_helper {

namespace {

class Options {
public:
    Options() = default;
    ~Options() { ::cupsFreeOptions(m_count, m_options); }
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    void add(const char* name, const std::string& value)
    {
        m_count = ::cupsAddOption(name, value.c_str(), m_count, &m_options);
    }
    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] cups_option_t* get() const { return m_options; }

private:
    int m_count = 0;
    cups_option_t* m_options = nullptr;
};

struct NamedPaper {
    PaperSize size;
    const char* name;
};
constexpr std::array kNamedPapers{
    NamedPaper{{14800, 21000}, "iso_a5_148x210mm"},
    NamedPaper{{21000, 29700}, "iso_a4_210x297mm"},
    NamedPaper{{29700, 42000}, "iso_a3_297x420mm"},
};

std::string millimetres(int hundredths)
{
    constexpr std::size_t kRoom = 32;
    std::array<char, kRoom> text{};
    std::snprintf(text.data(), text.size(), "%g", hundredths / 100.0);
    return text.data();
}

std::string mediaName(PaperSize paper)
{
    const auto* const found =
        std::find_if(kNamedPapers.begin(), kNamedPapers.end(), [paper](const NamedPaper& each) {
            return each.size.width == paper.width && each.size.height == paper.height;
        });
    if (found != kNamedPapers.end()) {
        return found->name;
    }
    const std::string size = millimetres(paper.width) + "x" + millimetres(paper.height) + "mm";
    return "custom_" + size + "_" + size;
}

// What the user has set for the queue, except for what the document itself says.
void fill(Options& options, const cups_dest_t& queue, PaperSize paper)
{
    for (int index = 0; index < queue.num_options; ++index) {
        options.add(queue.options[index].name, queue.options[index].value);
    }
    options.add("media", mediaName(paper));
    options.add("print-scaling", "none");
    options.add("copies", "1");
}

JobEnd endOf(ipp_status_t error)
{
    switch (error) {
    case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
    case IPP_STATUS_ERROR_FORBIDDEN:
    case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
    case IPP_STATUS_ERROR_NOT_AUTHORIZED:
    case IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED:
    case IPP_STATUS_ERROR_NOT_POSSIBLE:
    case IPP_STATUS_ERROR_DOCUMENT_FORMAT_NOT_SUPPORTED:
    case IPP_STATUS_ERROR_TOO_MANY_JOBS:
        return JobEnd::Refused;
    default:
        return JobEnd::Gone;
    }
}

} // namespace

JobEnd sendJobs(const JobRequest& request)
{
    constexpr unsigned kPatienceSeconds = 15;
    // The library takes minutes to give a silent service up. The program sees this process end.
    ::alarm(kPatienceSeconds);
    const Connection service = connectToService();
    const Queue queue = service ? findQueue(*service, request.queue) : nullptr;
    ::alarm(0);
    if (!queue) {
        return JobEnd::Gone;
    }
    Options options;
    fill(options, *queue, request.paper);
    for (int copy = 0; copy < request.copies; ++copy) {
        const int job = ::cupsPrintFile2(service.get(), queue->name, request.file.c_str(),
                                         request.title.c_str(), options.count(), options.get());
        if (job == 0) {
            return endOf(::cupsLastError());
        }
    }
    return JobEnd::Sent;
}

} // namespace print_helper
