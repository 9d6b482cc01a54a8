#pragma once

#include <cups/cups.h>
#include <memory>
#include <string>
#include <vector>

namespace print_helper {

struct CloseConnection {
    void operator()(http_t* connection) const { ::httpClose(connection); }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;

// The system's printing service; null where there is none. It is waited for half a minute for
// each answer, some times over, and nobody is asked for a password.
[[nodiscard]] Connection connectToService();

// A queue, with the options that its user has set for it; null once it is gone.
struct FreeQueue {
    void operator()(cups_dest_t* queue) const { ::cupsFreeDests(1, queue); }
};
using Queue = std::unique_ptr<cups_dest_t, FreeQueue>;

// A name is the queue's, or "queue/instance" for a set of options that its user has named.
[[nodiscard]] Queue findQueue(http_t& service, const std::string& name);

struct QueueEntry {
    std::string name;
    bool isDefault = false;
};
[[nodiscard]] std::vector<QueueEntry> allQueues(http_t& service);

} // namespace print_helper
