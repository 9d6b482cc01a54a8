#pragma once

#include "platform/devices/document_printer.h"
#include "platform/devices/print_queues.h"
#include "platform/devices/print_sender.h"

#include <map>
#include <memory>
#include <utility>

namespace platform {

// A queue of the printing service.
class QueuePrinter : public DocumentPrinter {
public:
    QueuePrinter(const QString& name, const PrinterContact& contact,
                 std::shared_ptr<PrintQueues> queues, PrintSender& sender);

private:
    [[nodiscard]] PaperTraits traitsOf(QSizeF upright) override;
    [[nodiscard]] std::unique_ptr<PrintTarget> openTarget(const QString& title) override;

    std::shared_ptr<PrintQueues> m_queues;
    PrintSender& m_sender;
    std::map<std::pair<double, double>, PaperTraits> m_traits; // of the papers asked for
};

} // namespace platform
