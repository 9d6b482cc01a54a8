#include "publishing/printing/contact_sheet_paper.h"

#include "base/numbers.h"
#include "core/printing.h"
#include "platform/pictures/transfers.h"
#include "publishing/printing/sheet_layout.h"

namespace printing {

namespace {

// A sheet of photographs would else be a document of some hundred megabytes.
QImage reduced(const QImage& image, QSize worth)
{
    const QSize size = worth.boundedTo(image.size());
    if (size.isEmpty() || size == image.size()) {
        return image;
    }
    const QImage small = platform::stretched(image, {0, 0, image.width(), image.height()}, size);
    return small.isNull() ? image : small;
}

} // namespace

ContactSheetPaper::ContactSheetPaper()
    : m_printer(core::currentPrinter())
{
}

ContactSheetPaper::~ContactSheetPaper()
{
    end();
}

void ContactSheetPaper::setQuality(const QString& dotsPerInch)
{
    const auto quality = base::strictInteger(dotsPerInch.toStdString());
    if (printer() != nullptr && quality) {
        printer()->setQuality(*quality);
    }
}

platform::PaperMetrics ContactSheetPaper::metrics()
{
    return printer() != nullptr ? printer()->metrics() : platform::PaperMetrics();
}

void ContactSheetPaper::turnPage(const QString& title)
{
    if (begin(title)) {
        m_printer->newPage();
    }
}

// The transparent parts of a picture are paper.
void ContactSheetPaper::draw(const platform::Picture& picture, const QRectF& place,
                             const QString& title)
{
    if (begin(title)) {
        const QSize worth = pixelsWorthPrinting(place.size(), m_printer->metrics());
        m_printer->draw(reduced(picture.flattened(), worth), place);
    }
}

bool ContactSheetPaper::end()
{
    const bool wasOpen = m_state == State::Open;
    m_state = State::Blank;
    return wasOpen && printer() != nullptr && printer()->endDocument();
}

// Null when it has gone for another one, and its document with it.
platform::Printer* ContactSheetPaper::printer() const
{
    return m_printer == platform::printers().selected() ? m_printer : nullptr;
}

// A run that this one has overtaken has left its document open. It comes out as far as it went;
// the start of another one would drop it.
bool ContactSheetPaper::begin(const QString& title)
{
    if (printer() != nullptr && m_state == State::Blank) {
        printer()->endDocument();
        m_state = printer()->startDocument(title) ? State::Open : State::Refused;
    }
    return m_state == State::Open && printer() != nullptr;
}

} // namespace printing
