#pragma once

#include "platform/devices/printed_paper.h"

#include <QByteArrayList>
#include <QDeadlineTimer>
#include <QString>
#include <chrono>
#include <map>
#include <optional>
#include <utility>

namespace platform {

// The helper program that talks to the printing service, in the program's folder.
[[nodiscard]] QString printHelper();

// What the printing service says of its queues, by way of the helper program. Who asks waits for
// two seconds at most; after that the service is left alone for half a minute, and says nothing.
class PrintQueues {
public:
    explicit PrintQueues(QString helper)
        : m_helper(std::move(helper))
    {
    }

    [[nodiscard]] std::vector<PrinterFacts> list();
    // Of an upright paper. A quality of 0: it doesn't say.
    [[nodiscard]] std::optional<PaperTraits> traits(const QString& queue, QSizeF millimetres);

private:
    [[nodiscard]] std::optional<QByteArray> ask(const QStringList& request);

    QString m_helper;
    QDeadlineTimer m_silence; // over at first
};

} // namespace platform
