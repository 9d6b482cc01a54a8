#include "platform/devices/print_sender.h"

#include "platform/devices/print_queues.h"
#include "platform/os/files.h"

#include <QFile>

namespace platform {

namespace {

constexpr double kHundredths = 100;

// Zero bytes end a text, so there are none in it.
QByteArray ended(QByteArray text)
{
    text.replace('\0', QByteArray());
    return text.append('\0');
}

QByteArray ended(double millimetres)
{
    return ended(QByteArray::number(qRound(millimetres * kHundredths)));
}

QByteArray requestFor(const PrintJob& job)
{
    return ended(job.queue.toUtf8()) + ended(job.title.toUtf8()) +
           ended(QFile::encodeName(job.file)) + ended(job.millimetres.width()) +
           ended(job.millimetres.height()) + ended(QByteArray::number(job.copies));
}

} // namespace

PrintSender::PrintSender(QString helper)
    : m_helper(std::move(helper))
{
}

bool PrintSender::start()
{
    constexpr int kStartMilliseconds = 2000;
    m_process = new QProcess(this);
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->start(m_helper, {QStringLiteral("send")});
    if (!m_process->waitForStarted(kStartMilliseconds)) {
        delete std::exchange(m_process, nullptr);
        return false;
    }
    connect(m_process, &QProcess::readyReadStandardOutput, this, &PrintSender::takeAnswers);
    connect(m_process, &QProcess::finished, this, &PrintSender::loseAll);
    return true;
}

bool PrintSender::send(const PrintJob& job)
{
    constexpr int kWriteMilliseconds = 2000;
    if (m_process == nullptr && !start()) {
        removeFile(job.file);
        return false;
    }
    m_jobs.push_back(job);
    m_process->write(requestFor(job));
    // Nobody may write it later, when the program is ending.
    m_process->waitForBytesWritten(kWriteMilliseconds);
    return true;
}

void PrintSender::takeAnswers()
{
    while (m_process != nullptr && m_process->canReadLine()) {
        takeAnswer(m_process->readLine().trimmed());
    }
}

void PrintSender::takeAnswer(const QByteArray& word)
{
    if (m_jobs.empty()) {
        return;
    }
    const PrintJob job = std::move(m_jobs.front());
    m_jobs.pop_front();
    if (m_jobs.empty()) {
        // The helper ends by itself now, and the next document gets another one.
        m_process->disconnect(this);
        connect(m_process, &QProcess::finished, m_process, &QObject::deleteLater);
        std::exchange(m_process, nullptr)->closeWriteChannel();
    }
    if (word != "sent") {
        job.failed(word == "refused" ? PrintFailure::Refused : PrintFailure::Gone);
    }
}

void PrintSender::loseAll()
{
    takeAnswers();
    if (m_process == nullptr) {
        return;
    }
    std::exchange(m_process, nullptr)->deleteLater();
    for (const PrintJob& job : std::exchange(m_jobs, {})) {
        removeFile(job.file);
        job.failed(PrintFailure::Gone);
    }
}

PrintSender& printSender()
{
    static auto* const sender = new PrintSender(printHelper());
    return *sender;
}

} // namespace platform
