#include "platform/devices/pdf_printer.h"

#include "platform/os/replacement_file.h"

#include <QFile>

namespace platform {

namespace {

class FileTarget : public PrintTarget {
public:
    explicit FileTarget(const QString& path)
        : m_replacement(path)
    {
    }

    [[nodiscard]] bool open()
    {
        return m_replacement.isOpen() &&
               m_file.open(m_replacement.descriptor(), QIODevice::WriteOnly);
    }
    [[nodiscard]] QFileDevice& file() override { return m_file; }

    // A file can be printed as often as wanted, so there is one of it.
    [[nodiscard]] std::optional<PrintFailure> deliver(int /*copies*/) override
    {
        return m_replacement.commit(Flush::ToDisk) ? std::nullopt
                                                   : std::optional(PrintFailure::NotSaved);
    }

private:
    ReplacementFile m_replacement;
    QFile m_file; // writes to it
};

} // namespace

PaperTraits PdfPrinter::traitsOf(QSizeF /*upright*/)
{
    constexpr int kQuality = 300;
    return {{}, kQuality};
}

std::unique_ptr<PrintTarget> PdfPrinter::openTarget(const QString& title)
{
    const QString path = contact().askFile ? contact().askFile(title) : QString();
    if (path.isEmpty()) {
        return nullptr;
    }
    auto target = std::make_unique<FileTarget>(path);
    if (!target->open()) {
        fail(PrintFailure::NotSaved);
        return nullptr;
    }
    return target;
}

} // namespace platform
