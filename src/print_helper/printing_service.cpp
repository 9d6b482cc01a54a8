#include "print_helper/printing_service.h"

namespace print_helper {

namespace {

constexpr int kConnectMilliseconds = 5000;
constexpr double kAnswerSeconds = 30;

int giveUp(http_t* /*connection*/, void* /*data*/)
{
    return 0;
}

const char* noPassword(const char* /*prompt*/, http_t* /*connection*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/)
{
    return nullptr;
}

std::string nameOf(const cups_dest_t& queue)
{
    return queue.instance == nullptr ? std::string(queue.name)
                                     : std::string(queue.name) + "/" + queue.instance;
}

} // namespace

Connection connectToService()
{
    ::cupsSetPasswordCB2(noPassword, nullptr);
    Connection connection(::httpConnect2(::cupsServer(), ::ippPort(), nullptr, AF_UNSPEC,
                                         ::cupsEncryption(), 1, kConnectMilliseconds, nullptr));
    if (connection) {
        ::httpSetTimeout(connection.get(), kAnswerSeconds, giveUp, nullptr);
    }
    return connection;
}

Queue findQueue(http_t& service, const std::string& name)
{
    const std::size_t slash = name.find('/');
    const std::string queue = name.substr(0, slash);
    const std::string instance = slash == std::string::npos ? "" : name.substr(slash + 1);
    return Queue(
        ::cupsGetNamedDest(&service, queue.c_str(), instance.empty() ? nullptr : instance.c_str()));
}

std::vector<QueueEntry> allQueues(http_t& service)
{
    cups_dest_t* queues = nullptr;
    const int count = ::cupsGetDests2(&service, &queues);
    std::vector<QueueEntry> entries;
    for (int index = 0; index < count; ++index) {
        entries.push_back({nameOf(queues[index]), queues[index].is_default != 0});
    }
    ::cupsFreeDests(count, queues);
    return entries;
}

} // namespace print_helper
