#pragma once

#include "platform/devices/scan_facts.h"

#include <QImage>
#include <QObject>
#include <string>
#include <vector>

namespace platform {

// Whoever asks for something here hears of it later, from the event loop, and never waits. All of
// it ends by itself in bounded time, whatever the scanner does.

// A look for scanners. One of its signals comes, once.
class ScannerSearch : public QObject {
    Q_OBJECT

signals:
    void found(const std::vector<platform::ScannerFacts>& scanners);
    void failed(platform::ScanFailure why);
};

// A scanner in use. It is opened by itself, and given back when this goes, in the middle of a scan
// too.
class ScannerSession : public QObject {
    Q_OBJECT

public:
    // False once the scanner is lost; the failure was told, and nothing more comes.
    [[nodiscard]] virtual bool isOpen() const = 0;
    virtual void set(ScanRole role, const ScanValue& value) = 0;
    virtual void scan(ScanKind kind) = 0; // not during a scan
    virtual void cancel() = 0;            // does nothing without a scan

signals:
    // As the options stand now: after opening, and after the last of some calls of set(), which may
    // have changed others too. Only options that can be set now are told.
    void optionsRead(const std::vector<platform::ScanOption>& options);
    // Rows of the scan under way; 0 in all where the scanner doesn't know.
    void progressed(int soFar, int inAll);
    // QImage::Format_Grayscale8 or Format_RGB888. Its pixels are those of the session's memory, and
    // the next scan writes over them: whoever keeps the image copies or converts it before.
    void scanned(const QImage& image);
    // Of opening, setting or scanning.
    void failed(platform::ScanFailure why);
};

class Scanners {
public:
    virtual ~Scanners() = default;

    // What is handed out belongs to the owner; deleting it ends what it does.
    virtual ScannerSearch* search(QObject* owner) = 0;
    virtual ScannerSession* open(const std::string& scanner, QObject* owner) = 0;
};

// The real ones, or what a test put in their place.
[[nodiscard]] Scanners& scanners();

class ScopedScanners {
public:
    explicit ScopedScanners(Scanners& replacement);
    ~ScopedScanners();
    ScopedScanners(const ScopedScanners&) = delete;
    ScopedScanners& operator=(const ScopedScanners&) = delete;

private:
    Scanners* m_previous;
};

} // namespace platform
