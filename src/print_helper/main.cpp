// Talks to the system's printing service for the program that started it, which waits for no
// server that way and loads nothing of it.

#include "print_helper/requests.h"

#include <csignal>
#include <cstdlib>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// Documents on their way arrive also when the program and its terminal are gone.
void outliveTheProgram()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    std::signal(SIGINT, SIG_IGN);
}

bool serve(const std::string& wanted, const std::vector<std::string>& request)
{
    if (wanted == "list") {
        return print_helper::answerList(*stdout);
    }
    if (wanted == "paper") {
        return print_helper::answerPaper(request, *stdout);
    }
    if (wanted == "send") {
        outliveTheProgram();
        print_helper::sendAll(*stdin, *stdout);
        return true;
    }
    return false;
}

} // namespace

int main(int count, char** texts)
{
    std::vector<std::string> arguments(texts + 1, texts + count);
    if (arguments.empty()) {
        return EXIT_FAILURE;
    }
    const std::string wanted = arguments.front();
    arguments.erase(arguments.begin());
    return serve(wanted, arguments) ? EXIT_SUCCESS : EXIT_FAILURE;
}
