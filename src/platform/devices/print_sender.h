#pragma once

#include "platform/devices/printers.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <deque>
#include <functional>

namespace platform {

struct PrintJob {
    QString queue;
    QString title;
    QString file;       // a PDF; removed once it is sent, or has failed
    QSizeF millimetres; // of the upright paper
    int copies = 1;
    std::function<void(PrintFailure why)> failed;
};

// Sends documents one after the other, by a run of the helper program in the background. What it
// was told to send it sends, also when the program ends meanwhile.
class PrintSender : public QObject {
public:
    explicit PrintSender(QString helper);

    // False when it can't be handed over; the file is removed then.
    [[nodiscard]] bool send(const PrintJob& job);

    [[nodiscard]] bool isBusy() const { return !m_jobs.empty(); }

private:
    bool start();
    void takeAnswers();
    void takeAnswer(const QByteArray& word);
    void loseAll();

    QString m_helper;
    QProcess* m_process = nullptr; // while there is something to send; its last child
    std::deque<PrintJob> m_jobs;   // not answered yet
};

// The program's own, which is never deleted: that would end what it sends.
[[nodiscard]] PrintSender& printSender();

} // namespace platform
