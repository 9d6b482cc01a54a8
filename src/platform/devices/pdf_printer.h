#pragma once

#include "platform/devices/document_printer.h"
#include "platform/os/replacement_file.h"

#include <QFile>

namespace platform {

// Prints into a file that it asks for at the start of each document. The file gets its name when
// the document is whole, and what stood there stays until then.
class PdfPrinter : public DocumentPrinter {
public:
    using DocumentPrinter::DocumentPrinter;

private:
    [[nodiscard]] PaperTraits traitsOf(QSizeF upright) override;
    [[nodiscard]] QFileDevice* openTarget(const QString& title) override;
    [[nodiscard]] bool deliver(int copies) override;
    void dropTarget() override;

    std::unique_ptr<ReplacementFile> m_replacement;
    std::unique_ptr<QFile> m_file; // writes to it
};

} // namespace platform
