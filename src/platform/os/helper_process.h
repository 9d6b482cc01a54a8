#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <chrono>

namespace platform {

struct HelperCall {
    QString program;
    int input =
        -1; // descriptor that becomes the helper's standard input; below 0: it reads nothing
    qint64 mostOutput = 0;
    std::chrono::milliseconds patience{0};
    QStringList arguments = {};
};

enum class HelperEnd {
    Answered,   // ended with success; what it wrote is its answer
    Refused,    // ended by itself, with another exit code
    Crashed,    // a signal ended it, one of the system's limits perhaps
    TooLong,    // wasn't done in time and was killed
    TooMuch,    // wrote more than mostOutput and was killed
    NotStarted, // there is no such program, or the system has no room for it
};

struct HelperAnswer {
    HelperEnd end = HelperEnd::NotStarted;
    int code = 0;      // the exit code of one that refused, the signal of one that crashed
    QByteArray output; // of one that answered
};

// Runs a helper program and gives what it wrote on its standard output. Events don't run meanwhile.
[[nodiscard]] HelperAnswer helperAnswer(const HelperCall& call);

} // namespace platform
