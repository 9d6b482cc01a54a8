#pragma once

#include "platform/devices/document_printer.h"

#include <QTemporaryFile>

namespace platform {

// A queue of the printing service.
class QueuePrinter : public DocumentPrinter {
public:
    using DocumentPrinter::DocumentPrinter;

private:
    [[nodiscard]] PaperTraits traitsOf(QSizeF upright) override;
    [[nodiscard]] QFileDevice* openTarget(const QString& title) override;
    [[nodiscard]] bool deliver(int copies) override;
    void dropTarget() override;

    std::unique_ptr<QTemporaryFile> m_spool;
};

} // namespace platform
