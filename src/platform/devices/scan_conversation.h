#pragma once

#include "platform/devices/scan_memory.h"
#include "platform/devices/scan_messages.h"

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTimer>
#include <chrono>
#include <span>

namespace platform {

// How long the helper may stay silent while something is asked of it. Drivers look for scanners in
// the network, and lamps warm up.
struct ScanPatience {
    std::chrono::milliseconds answer = std::chrono::seconds(60);
    std::chrono::milliseconds rows = std::chrono::seconds(120);
    std::chrono::milliseconds ending = std::chrono::seconds(10); // of a scan, and of itself
};

// The program's end of the talk with one running helper. A helper that doesn't keep to it is
// killed. Used inside this folder only.
class ScanConversation : public QObject {
    Q_OBJECT

public:
    explicit ScanConversation(const QString& helper);
    // The helper gives the scanner back and ends; it is killed where that takes too long.
    ~ScanConversation() override;

    [[nodiscard]] bool isOpen() const { return m_process != nullptr; }
    [[nodiscard]] const ScanMemory& memory() const { return m_memory; }
    void send(const MessageBytes& message);
    // From now on silence ends it after this time; 0: there is nothing to wait for.
    void expectWithin(std::chrono::milliseconds patience);
    void setEnding(std::chrono::milliseconds ending) { m_ending = ending; }
    void end(ScanFailure why);

signals:
    void answered(platform::ScanMessage kind, const QByteArray& bytes);
    // Once; the helper is gone.
    void ended(platform::ScanFailure why);

private:
    void start(const QString& helper);
    void readAnswers();
    [[nodiscard]] bool takeAnswer();
    void release();

    ScanMemory m_memory;
    QProcess* m_process = nullptr; // owned, until it is left to end by itself
    QTimer m_silence;
    QByteArray m_bytes; // read and not yet understood
    std::chrono::milliseconds m_ending{0};
};

[[nodiscard]] std::span<const std::byte> bytesOf(const QByteArray& bytes);

} // namespace platform
