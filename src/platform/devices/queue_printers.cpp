#include "platform/devices/queue_printers.h"

#include "platform/devices/pdf_printer.h"
#include "platform/devices/queue_printer.h"

namespace platform {

std::vector<PrinterFacts> QueuePrinters::list()
{
    return {};
}

std::unique_ptr<Printer> QueuePrinters::open(const QString& name, const PrinterContact& contact)
{
    return std::make_unique<QueuePrinter>(name, contact);
}

std::unique_ptr<Printer> QueuePrinters::openPdf(const QString& name, const PrinterContact& contact)
{
    return std::make_unique<PdfPrinter>(name, contact);
}

} // namespace platform
