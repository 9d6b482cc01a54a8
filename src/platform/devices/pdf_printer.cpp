#include "platform/devices/pdf_printer.h"

namespace platform {

PaperTraits PdfPrinter::traitsOf(QSizeF /*upright*/)
{
    constexpr int kQuality = 300;
    return {{}, kQuality};
}

QFileDevice* PdfPrinter::openTarget(const QString& title)
{
    const QString path = contact().askFile ? contact().askFile(title) : QString();
    if (path.isEmpty()) {
        return nullptr;
    }
    m_replacement = std::make_unique<ReplacementFile>(path);
    m_file = std::make_unique<QFile>();
    if (!m_replacement->isOpen() ||
        !m_file->open(m_replacement->descriptor(), QIODevice::WriteOnly)) {
        dropTarget();
        fail(PrintFailure::NotSaved);
        return nullptr;
    }
    return m_file.get();
}

// A file can be printed as often as wanted, so there is one of it.
bool PdfPrinter::deliver(int /*copies*/)
{
    if (!m_replacement->commit(Flush::ToDisk)) {
        fail(PrintFailure::NotSaved);
        return false;
    }
    return true;
}

void PdfPrinter::dropTarget()
{
    m_file.reset();
    m_replacement.reset();
}

} // namespace platform
