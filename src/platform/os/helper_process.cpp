#include "platform/os/helper_process.h"

#include "platform/os/descriptor.h"
#include "platform/os/paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

struct Pipe {
    Descriptor reading;
    Descriptor writing;
};

Pipe makePipe()
{
    std::array<int, 2> ends = {-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return {};
    }
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

constexpr const char* kNowhere = "/dev/null";

// The program and its arguments, as it is told them.
std::vector<std::string> lineOf(const HelperCall& call)
{
    std::vector<std::string> texts = {toNative(call.program)};
    for (const QString& argument : call.arguments) {
        texts.push_back(toNative(argument));
    }
    return texts;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

bool addInput(posix_spawn_file_actions_t& actions, int input)
{
    return input >= 0 ? ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO) == 0
                      : ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, kNowhere,
                                                           O_RDONLY, 0) == 0;
}

// A started process, which is gone at the latest when this is.
class Child {
public:
    Child(const HelperCall& call, int output) { start(call, output); }
    ~Child()
    {
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            waitFor(0);
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    [[nodiscard]] bool isStarted() const { return m_pid > 0; }
    // Its status, if it ends before the moment.
    [[nodiscard]] std::optional<int> statusBefore(Clock::time_point end);

private:
    void start(const HelperCall& call, int output);
    // The status once it has ended.
    std::optional<int> waitFor(int options);

    pid_t m_pid = 0;
};

void Child::start(const HelperCall& call, int output)
{
    std::vector<std::string> texts = lineOf(call);
    posix_spawn_file_actions_t actions;
    if (::posix_spawn_file_actions_init(&actions) != 0) {
        return;
    }
    pid_t pid = 0;
    const bool started =
        addInput(actions, call.input) &&
        ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO) == 0 &&
        ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, kNowhere, O_WRONLY, 0) == 0 &&
        ::posix_spawn(&pid, texts.front().c_str(), &actions, nullptr, pointersTo(texts).data(),
                      environ) == 0;
    ::posix_spawn_file_actions_destroy(&actions);
    m_pid = started ? pid : 0;
}

std::optional<int> Child::waitFor(int options)
{
    int status = 0;
    pid_t ended = 0;
    do {
        ended = ::waitpid(m_pid, &status, options);
    } while (ended < 0 && errno == EINTR);
    if (ended == 0) {
        return std::nullopt;
    }
    m_pid = 0;
    constexpr int kLost = -1;
    return ended > 0 ? status : kLost;
}

std::optional<int> Child::statusBefore(Clock::time_point end)
{
    constexpr std::chrono::milliseconds kPause(1);
    while (true) {
        if (const auto status = waitFor(WNOHANG)) {
            return status;
        }
        if (Clock::now() >= end) {
            return std::nullopt;
        }
        std::this_thread::sleep_for(kPause);
    }
}

// Whether there is something to read, or the end, before the moment.
bool isReadableBefore(int descriptor, Clock::time_point end)
{
    while (true) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) {
            return false;
        }
        pollfd waited{descriptor, POLLIN, 0};
        const int ready = ::poll(&waited, 1, int(std::min<long>(left, 1000)));
        if (ready > 0) {
            return true;
        }
        if (ready < 0 && errno != EINTR) {
            return false;
        }
    }
}

// Reads until everybody has closed the other end. TooLong or TooMuch where that doesn't come.
HelperEnd readToEnd(int descriptor, const HelperCall& call, Clock::time_point end,
                    QByteArray& bytes)
{
    constexpr qint64 kStep = qint64(1) << 16;
    while (isReadableBefore(descriptor, end)) {
        const qint64 before = bytes.size();
        bytes.resize(before + kStep);
        const ssize_t got = ::read(descriptor, bytes.data() + before, std::size_t(kStep));
        if (got < 0 && errno != EINTR) {
            break;
        }
        bytes.resize(before + std::max<qint64>(got, 0));
        if (got == 0) {
            return HelperEnd::Answered;
        }
        if (bytes.size() > call.mostOutput) {
            return HelperEnd::TooMuch;
        }
    }
    return HelperEnd::TooLong;
}

HelperAnswer ended(int status, QByteArray output)
{
    if (!WIFEXITED(status)) {
        return {HelperEnd::Crashed, WIFSIGNALED(status) ? WTERMSIG(status) : 0, {}};
    }
    if (WEXITSTATUS(status) != 0) {
        return {HelperEnd::Refused, WEXITSTATUS(status), {}};
    }
    return {HelperEnd::Answered, 0, std::move(output)};
}

} // namespace

HelperAnswer helperAnswer(const HelperCall& call)
{
    const auto end = Clock::now() + call.patience;
    Pipe output = makePipe();
    if (!output.reading.isOpen() || call.program.contains(QChar(u'\0'))) {
        return {};
    }
    Child child(call, output.writing.get());
    // Only the helper's end may keep the pipe open.
    output.writing.reset();
    if (!child.isStarted()) {
        return {};
    }
    QByteArray bytes;
    const HelperEnd reading = readToEnd(output.reading.get(), call, end, bytes);
    if (reading != HelperEnd::Answered) {
        return {reading, 0, {}};
    }
    const std::optional<int> status = child.statusBefore(end);
    return status ? ended(*status, std::move(bytes)) : HelperAnswer{HelperEnd::TooLong, 0, {}};
}

} // namespace platform
