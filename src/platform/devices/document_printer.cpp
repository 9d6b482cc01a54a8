#include "platform/devices/document_printer.h"

#include <utility>

namespace platform {

namespace {

// However often a document fails and whatever fails it, it is told once.
PrinterContact toldOnce(PrinterContact contact)
{
    contact.failed = [told = std::make_shared<bool>(false),
                      failed = std::move(contact.failed)](PrintFailure why) {
        if (!std::exchange(*told, true) && failed) {
            failed(why);
        }
    };
    return contact;
}

} // namespace

DocumentPrinter::DocumentPrinter(QString name, const PrinterContact& contact)
    : m_name(std::move(name))
    , m_given(contact)
{
}

void DocumentPrinter::setPaper(Paper paper, QSizeF customMillimetres)
{
    m_setting.paper = paper;
    m_setting.customMillimetres = customMillimetres;
}

void DocumentPrinter::setOrientation(PaperOrientation orientation)
{
    m_setting.orientation = orientation;
}

void DocumentPrinter::setQuality(int dotsPerInch)
{
    if (isSensibleQuality(dotsPerInch)) {
        m_setting.dotsPerInch = dotsPerInch;
    }
}

PaperMetrics DocumentPrinter::metrics()
{
    return metricsOf(m_setting, traitsOf(uprightMillimetres(m_setting)));
}

bool DocumentPrinter::startDocument(const QString& title)
{
    abandonDocument();
    m_contact = toldOnce(m_given);
    const PaperMetrics paper = metrics();
    if (paper.isEmpty()) {
        return false;
    }
    m_target = openTarget(title);
    if (m_target) {
        m_pages =
            std::make_unique<PdfPages>(m_target->file(), paper, lyingMillimetres(m_setting), title);
    }
    return m_pages != nullptr;
}

void DocumentPrinter::newPage()
{
    if (m_pages) {
        m_pages->newPage();
    }
}

void DocumentPrinter::draw(const QImage& picture, const QRectF& place, const QRectF& clip)
{
    if (m_pages) {
        m_pages->draw(picture, place, clip);
    }
}

void DocumentPrinter::fill(const QRectF& place, base::Colour colour)
{
    if (m_pages) {
        m_pages->fill(place, colour);
    }
}

bool DocumentPrinter::endDocument(int copies)
{
    const auto target = std::exchange(m_target, nullptr);
    const auto pages = std::exchange(m_pages, nullptr);
    if (!pages) {
        return false;
    }
    std::optional<PrintFailure> failure;
    if (!pages->finish()) {
        failure = PrintFailure::NotSaved;
    } else if (copies > 0) {
        failure = target->deliver(copies);
    }
    if (failure) {
        fail(*failure);
    }
    return !failure;
}

void DocumentPrinter::abandonDocument()
{
    m_pages.reset();
    m_target.reset();
}

void DocumentPrinter::fail(PrintFailure why)
{
    m_contact.failed(why);
}

} // namespace platform
