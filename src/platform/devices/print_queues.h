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
// two seconds at most; after that a queue that didn't answer is left alone for half a minute, and
// all of them when it was the service itself that didn't list them.
class PrintQueues {
public:
    explicit PrintQueues(QString helper)
        : m_helper(std::move(helper))
    {
    }

    // As they were some seconds ago at most; those of the last answer where there is none now.
    [[nodiscard]] std::vector<PrinterFacts> list();
    // Of an upright paper. A quality of 0: it doesn't say.
    [[nodiscard]] std::optional<PaperTraits> traits(const QString& queue, QSizeF millimetres);

private:
    // The queue is "" for the service itself.
    [[nodiscard]] std::optional<QByteArray> ask(const QString& queue, const QStringList& request);
    [[nodiscard]] bool isSilent(const QString& queue) const;

    QString m_helper;
    std::map<QString, QDeadlineTimer> m_silences; // by queue
    std::vector<PrinterFacts> m_list;
    QDeadlineTimer m_listAge; // over at first
};

} // namespace platform
