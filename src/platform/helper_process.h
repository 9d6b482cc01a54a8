#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <optional>

namespace platform {

struct HelperCall {
    QString program;
    int input = -1; // descriptor that becomes the helper's standard input
    qint64 mostOutput = 0;
    std::chrono::milliseconds patience{0};
};

// Runs a helper program and gives what it wrote on its standard output. Nothing when it can't be
// started, ends other than with success, writes more than mostOutput, or isn't done in time; it is
// killed then. Events don't run meanwhile.
[[nodiscard]] std::optional<QByteArray> helperOutput(const HelperCall& call);

} // namespace platform
