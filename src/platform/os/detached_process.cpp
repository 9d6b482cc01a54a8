#include "platform/os/detached_process.h"

#include "platform/os/descriptor.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

bool isProgram(const QString& path)
{
    return isRegularFile(path) && ::access(toNative(path).c_str(), X_OK) == 0;
}

// The child's side, between fork and exec: nothing here may take memory or locks. A byte in the
// pipe says that it didn't work; a program that starts closes the pipe.
[[noreturn]] void becomeProgram(char** arguments, int input, int report)
{
    ::setsid();
    // The program's parent ends at once, so that the system's first process reaps it.
    const pid_t program = ::fork();
    if (program != 0) {
        const char failed = 1;
        if (program < 0) {
            static_cast<void>(::write(report, &failed, 1) == 1);
        }
        ::_exit(0);
    }
    ::dup2(input, STDIN_FILENO);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    std::signal(SIGPIPE, SIG_DFL);
    ::execv(arguments[0], arguments);
    const char failed = 1;
    static_cast<void>(::write(report, &failed, 1) == 1);
    ::_exit(1);
}

bool saysFailure(int report)
{
    char byte = 0;
    ssize_t got = 0;
    do {
        got = ::read(report, &byte, 1);
    } while (got < 0 && errno == EINTR);
    return got != 0;
}

} // namespace

bool startDetached(const QString& path, const QStringList& arguments)
{
    if (!isProgram(path)) {
        return false;
    }
    std::vector<std::string> texts = {toNative(path)};
    for (const QString& argument : arguments) {
        texts.push_back(toNative(argument));
    }
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);

    int ends[2] = {-1, -1};
    const Descriptor input = openDescriptor(QStringLiteral("/dev/null"), O_RDONLY);
    if (!input.isOpen() || ::pipe2(ends, O_CLOEXEC) != 0) {
        return false;
    }
    const Descriptor report(ends[0]);
    Descriptor childReport(ends[1]);
    const pid_t child = ::fork();
    if (child == 0) {
        becomeProgram(pointers.data(), input.get(), childReport.get());
    }
    childReport.reset();
    if (child < 0) {
        return false;
    }
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return !saysFailure(report.get());
}

} // namespace platform
