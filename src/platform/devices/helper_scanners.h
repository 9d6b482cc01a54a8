#pragma once

#include "platform/devices/scan_conversation.h"
#include "platform/devices/scanners.h"

#include <QString>

namespace platform {

// The helper program that talks to scanners, in the program's folder.
[[nodiscard]] QString scanHelper();

// Scanners by way of the helper program, one run of it for each search and each session. The
// system's drivers live and die there.
class HelperScanners : public Scanners {
public:
    explicit HelperScanners(QString helper = {}, ScanPatience patience = {});

    ScannerSearch* search(QObject* owner) override;
    ScannerSession* open(const std::string& scanner, QObject* owner) override;

private:
    [[nodiscard]] QString helper() const;

    QString m_helper; // empty: scanHelper()
    ScanPatience m_patience;
};

} // namespace platform
