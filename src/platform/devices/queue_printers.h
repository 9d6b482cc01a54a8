#pragma once

#include "platform/devices/print_queues.h"
#include "platform/devices/print_sender.h"

#include <memory>

namespace platform {

// The printers of the system's printing service, and PDF files.
class QueuePrinters : public Printers {
public:
    explicit QueuePrinters(const QString& helper = printHelper(),
                           PrintSender& sender = printSender());

    [[nodiscard]] std::vector<PrinterFacts> list() override;
    [[nodiscard]] std::unique_ptr<Printer> open(const QString& name,
                                                const PrinterContact& contact) override;
    [[nodiscard]] std::unique_ptr<Printer> openPdf(const QString& name,
                                                   const PrinterContact& contact) override;

private:
    std::shared_ptr<PrintQueues> m_queues; // also of the printers that were opened
    PrintSender& m_sender;
};

} // namespace platform
