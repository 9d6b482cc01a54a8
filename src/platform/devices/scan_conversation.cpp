#include "platform/devices/scan_conversation.h"

#include <QCoreApplication>
#include <QPointer>
#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace platform {

namespace {

// Runs in the process that is about to become the helper.
void handMemoryOver(int descriptor)
{
    // The same number would stay closed at the start of the program.
    if (descriptor == kScanMemory) {
        descriptor = ::dup(descriptor);
    }
    if (::dup2(descriptor, kScanMemory) < 0) {
        ::_exit(EXIT_FAILURE);
    }
}

void endNow(QProcess* process)
{
    process->disconnect();
    process->kill();
    process->waitForFinished();
}

// Lets a helper end by itself for a while. The program's end ends it too.
void leaveToEnd(QProcess* process, std::chrono::milliseconds patience)
{
    process->disconnect();
    process->setParent(QCoreApplication::instance());
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QObject::connect(QCoreApplication::instance(), &QObject::destroyed, process,
                     [process] { endNow(process); });
    process->closeWriteChannel();
    process->closeReadChannel(QProcess::StandardOutput);
    QTimer::singleShot(patience, process, &QProcess::kill);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
    }
}

} // namespace

std::span<const std::byte> bytesOf(const QByteArray& bytes)
{
    return std::as_bytes(std::span(bytes.constData(), std::size_t(bytes.size())));
}

ScanConversation::ScanConversation(const QString& helper)
{
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, [this] { end(ScanFailure::Silent); });
    m_process = new QProcess(this);
    // Whoever made this has to connect first.
    QTimer::singleShot(0, this, [this, helper] { start(helper); });
}

ScanConversation::~ScanConversation()
{
    release();
}

void ScanConversation::start(const QString& helper)
{
    if (m_process == nullptr) {
        return;
    }
    if (!m_memory.isOpen()) {
        end(ScanFailure::NoMemory);
        return;
    }
    connect(m_process, &QProcess::readyReadStandardOutput, this, &ScanConversation::readAnswers);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            end(ScanFailure::NoHelper);
        }
    });
    connect(m_process, &QProcess::finished, this, [this] { end(ScanFailure::Crashed); });
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->setChildProcessModifier(
        [descriptor = m_memory.descriptor()] { handMemoryOver(descriptor); });
    m_process->start(helper, QStringList());
    if (m_process != nullptr) {
        m_process->write(std::exchange(m_bytes, QByteArray()));
    }
}

void ScanConversation::send(const MessageBytes& message)
{
    const QByteArray bytes(reinterpret_cast<const char*>(message.data()),
                           qsizetype(message.size()));
    if (m_process == nullptr) {
        return;
    }
    if (m_process->state() == QProcess::NotRunning) {
        m_bytes += bytes; // until it is started
    } else {
        m_process->write(bytes);
    }
}

void ScanConversation::expectWithin(std::chrono::milliseconds patience)
{
    if (patience.count() == 0) {
        m_silence.stop();
    } else {
        m_silence.start(patience);
    }
}

void ScanConversation::readAnswers()
{
    m_bytes += m_process->readAllStandardOutput();
    const QPointer<ScanConversation> alive = this;
    while (alive != nullptr && isOpen() && takeAnswer()) {
    }
}

// The next whole message. Whoever hears of it may delete this.
bool ScanConversation::takeAnswer()
{
    if (m_bytes.size() < qsizetype(kMessageHeadBytes)) {
        return false;
    }
    const auto head = readHead(bytesOf(m_bytes).first(kMessageHeadBytes));
    if (!head) {
        end(ScanFailure::Nonsense);
        return false;
    }
    const qsizetype length = qsizetype(kMessageHeadBytes + head->length);
    if (m_bytes.size() < length) {
        return false;
    }
    const QByteArray body = m_bytes.mid(kMessageHeadBytes, qsizetype(head->length));
    m_bytes.remove(0, length);
    if (m_silence.isActive()) {
        m_silence.start();
    }
    emit answered(head->kind, body);
    return true;
}

void ScanConversation::release()
{
    m_silence.stop();
    if (QProcess* process = std::exchange(m_process, nullptr)) {
        leaveToEnd(process, m_ending);
    }
}

void ScanConversation::end(ScanFailure why)
{
    if (!isOpen()) {
        return;
    }
    if (why == ScanFailure::Silent || why == ScanFailure::Nonsense) {
        m_process->kill();
    }
    release();
    emit ended(why);
}

} // namespace platform
