#pragma once

#include "platform/devices/scanners.h"

#include <QPointer>
#include <QStringList>

namespace support {

class FakeSession : public platform::ScannerSession {
public:
    explicit FakeSession(QStringList& log)
        : m_log(log)
    {
    }

    [[nodiscard]] bool isOpen() const override { return m_isOpen; }
    void set(platform::ScanRole role, const platform::ScanValue& value) override
    {
        m_log.append(QStringLiteral("set %1 %2%3")
                         .arg(int(role))
                         .arg(QString::fromStdString(value.word))
                         .arg(value.number));
        lastValue = value;
    }
    void scan(platform::ScanKind kind) override
    {
        m_log.append(kind == platform::ScanKind::Preview ? QStringLiteral("preview")
                                                         : QStringLiteral("scan"));
    }
    void cancel() override { m_log.append(QStringLiteral("cancel")); }

    void lose(platform::ScanFailure why)
    {
        m_isOpen = false;
        emit failed(why);
    }

    platform::ScanValue lastValue; // as it was set

private:
    QStringList& m_log;
    bool m_isOpen = true;
};

// Scanners for tests: they write down what they are asked for, and say what a test has them say,
// when it has them say it. In place while they live.
class FakeScanners : public platform::Scanners {
public:
    platform::ScannerSearch* search(QObject* owner) override
    {
        log.append(QStringLiteral("search"));
        lastSearch = new platform::ScannerSearch; // the owner's
        lastSearch->setParent(owner);
        return lastSearch;
    }
    platform::ScannerSession* open(const std::string& scanner, QObject* owner) override
    {
        log.append(QStringLiteral("open ") + QString::fromStdString(scanner));
        lastOpened = scanner;
        lastSession = new FakeSession(log); // the owner's
        lastSession->setParent(owner);
        return lastSession;
    }

    QStringList log;
    QPointer<platform::ScannerSearch> lastSearch;
    QPointer<FakeSession> lastSession;
    std::string lastOpened;

private:
    platform::ScopedScanners m_inPlace{*this};
};

} // namespace support
