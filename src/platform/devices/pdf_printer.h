#pragma once

#include "platform/devices/document_printer.h"

namespace platform {

// Prints into a file that it asks for at the start of each document. The file gets its name when
// the document is whole, and what stood there stays until then.
class PdfPrinter : public DocumentPrinter {
public:
    using DocumentPrinter::DocumentPrinter;

private:
    [[nodiscard]] PaperTraits traitsOf(QSizeF upright) override;
    [[nodiscard]] std::unique_ptr<PrintTarget> openTarget(const QString& title) override;
};

} // namespace platform
