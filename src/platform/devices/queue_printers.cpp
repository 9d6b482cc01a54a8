#include "platform/devices/queue_printers.h"

#include "platform/devices/pdf_printer.h"
#include "platform/devices/queue_printer.h"

namespace platform {

QueuePrinters::QueuePrinters(const QString& helper, PrintSender& sender)
    : m_queues(std::make_shared<PrintQueues>(helper))
    , m_sender(sender)
{
}

std::vector<PrinterFacts> QueuePrinters::list()
{
    return m_queues->list();
}

std::unique_ptr<Printer> QueuePrinters::open(const QString& name, const PrinterContact& contact)
{
    return std::make_unique<QueuePrinter>(name, contact, m_queues, m_sender);
}

std::unique_ptr<Printer> QueuePrinters::openPdf(const QString& name, const PrinterContact& contact)
{
    return std::make_unique<PdfPrinter>(name, contact);
}

} // namespace platform
