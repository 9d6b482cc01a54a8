#pragma once

#include "platform/devices/printers.h"

namespace platform {

// The printers of the system's printing service, and PDF files.
class QueuePrinters : public Printers {
public:
    [[nodiscard]] std::vector<PrinterFacts> list() override;
    [[nodiscard]] std::unique_ptr<Printer> open(const QString& name,
                                                const PrinterContact& contact) override;
    [[nodiscard]] std::unique_ptr<Printer> openPdf(const QString& name,
                                                   const PrinterContact& contact) override;
};

} // namespace platform
