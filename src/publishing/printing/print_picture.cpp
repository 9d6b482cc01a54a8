#include "publishing/printing/print_picture.h"

#include "core/printing.h"
#include "core/settings.h"
#include "platform/devices/printers.h"
#include "publishing/printing/print_resolution.h"
#include "publishing/printing/sheet_layout.h"

using platform::PaperMetrics;
using platform::PaperOrientation;

namespace {

// Where the page begins on what the printer can reach: in its corner, where the margins end.
// Classic mode counts the margins once more.
QPointF pageCorner(const printing::Margins& margins)
{
    return core::setting(core::kClassic) ? QPointF(margins.left, margins.top) : QPointF();
}

// A part of the page, in the printer's pixels from the corner of what it can reach.
QRectF onPaper(const QRectF& part, const PaperMetrics& metrics, QPointF corner)
{
    constexpr QSize kInch(printing::kPagePixelsAnInch, printing::kPagePixelsAnInch);
    return printing::samePlace(part, kInch, {metrics.logPixelsX, metrics.logPixelsY})
        .translated(corner);
}

printing::Margins marginsOf(const PaperMetrics& metrics)
{
    return {metrics.physicalOffsetY, metrics.physicalOffsetX,
            metrics.physicalWidth - metrics.physicalOffsetX - metrics.innerWidth,
            metrics.physicalHeight - metrics.physicalOffsetY - metrics.innerHeight};
}

struct PlacedImage {
    QImage image;
    QRect place; // on the page
};

// What the page leaves of an image that lies on it at its own size; all of it at another one.
PlacedImage seenPart(const QImage& image, const QRect& place, const QRect& page)
{
    if (image.size() != place.size()) {
        return {image, place};
    }
    const QRect seen = place & page;
    return {image.copy(seen.translated(-place.topLeft())), seen};
}

const platform::PaperRow* paperRow(std::int32_t size)
{
    const bool isKnown = size >= 0 && size < static_cast<std::int32_t>(printing::kPapers.size());
    return isKnown ? &printing::kPapers[static_cast<std::size_t>(size)] : nullptr;
}

} // namespace

AAPrintPicture::AAPrintPicture(QObject* parent)
    : QObject(parent)
    , m_pageFollowsPaper(!core::setting(core::kClassic))
{
}

void AAPrintPicture::GetPrinterMargin()
{
    if (!m_values.Printer.isEmpty()) {
        // Where it is gone the one that was selected before is measured.
        static_cast<void>(core::selectPrinter(m_values.Printer));
    }
    if (platform::Printer* printer = core::currentPrinter()) {
        if (m_pageFollowsPaper) {
            setOrientation(*printer);
        }
        setPaper(*printer);
        m_margins = marginsOf(printer->metrics());
    }
    emit MarginsMeasured(m_margins.left, m_margins.top, m_margins.right, m_margins.bottom);
}

void AAPrintPicture::setPaper(platform::Printer& printer) const
{
    if (const platform::PaperRow* row = paperRow(m_values.PaperSize)) {
        printer.setPaper(row->paper, QSizeF(m_values.PaperWidth, m_values.PaperHeight));
    }
}

void AAPrintPicture::setOrientation(platform::Printer& printer) const
{
    printer.setOrientation(m_isLandscape ? PaperOrientation::Landscape
                                         : PaperOrientation::Portrait);
}

void AAPrintPicture::GetPaperWH(std::int16_t& width, std::int16_t& height) const
{
    const platform::PaperRow* row = paperRow(m_values.PaperSize);
    const bool isManual = m_values.PaperSize == printing::kManualPaper || row == nullptr;
    width = isManual ? m_values.PaperWidth : row->width;
    height = isManual ? m_values.PaperHeight : row->height;
}

QSize AAPrintPicture::pageSize() const
{
    std::int16_t width = 0;
    std::int16_t height = 0;
    GetPaperWH(width, height);
    const QSize upright(width, height);
    const bool isOnItsSide = m_isLandscape && m_pageFollowsPaper;
    return printing::pagePixels(isOnItsSide ? upright.transposed() : upright, m_margins);
}

AAPrintPicture::Composition AAPrintPicture::compose()
{
    GetPrinterMargin();
    Hvprinter(m_isLandscape);
    const QSize page = pageSize();
    if (page.isEmpty()) {
        return {};
    }
    const QSize natural(m_picture.width(), m_picture.height());
    const bool shrinks = m_shrinksToFit && !m_values.Stretch;
    const QSize shown = shrinks ? printing::shrunkInto(page, natural) : natural;
    const QPoint corner = printing::alignedOffset(m_values.Align, page, shown);
    Composition composition{page, QRect(corner, shown), {}};
    if (m_values.ShowBorder && !m_picture.isNothing()) {
        composition.border = printing::frameSides(corner, shown, page);
    }
    if (m_values.Stretch) {
        composition.picture = QRect(QPoint(0, 0), page);
    }
    return composition;
}

platform::Picture AAPrintPicture::GetPreview()
{
    const Composition composition = compose();
    if (composition.page.isEmpty() ||
        !m_picPrint.resize(composition.page.width(), composition.page.height())) {
        m_picPrint = {};
        return {};
    }
    m_picPrint.setBackColor(m_values.BackColor);
    const QRect& place = composition.picture;
    m_picPrint.paintPicture(m_picture, place.x(), place.y(), place.width(), place.height());
    for (const QRect& side : composition.border) {
        if (!side.isEmpty()) {
            m_picPrint.fillBox(side.left(), side.top(), side.right(), side.bottom(),
                               m_values.BorderColor);
        }
    }
    return m_picPrint.drawnImage();
}

void AAPrintPicture::PrintPicture()
{
    printing::storePrintResolution();
    const Composition composition = compose();
    const bool hasPage = !composition.page.isEmpty() && !m_picture.isNothing();
    platform::Printer* const printer = core::currentPrinter();
    if (hasPage && isElsewhere(printer)) {
        core::tellPrinterGone(m_values.Printer);
        return;
    }
    if (!hasPage || printer == nullptr || !printer->startDocument(m_documentTitle)) {
        return;
    }
    drawOn(*printer, composition);
    // What fails is told where the printer was opened.
    static_cast<void>(printer->endDocument(m_values.Copies));
}

// Classic mode prints on the printer that is left, the other mode never on one that nobody chose.
bool AAPrintPicture::isElsewhere(const platform::Printer* printer) const
{
    return !core::setting(core::kClassic) && !m_values.Printer.isEmpty() && printer != nullptr &&
           printer->name() != m_values.Printer;
}

void AAPrintPicture::drawOn(platform::Printer& printer, const Composition& composition) const
{
    const PaperMetrics metrics = printer.metrics();
    const auto place = [&metrics, start = pageCorner(m_margins)](const QRect& part) {
        return onPaper(part, metrics, start);
    };
    const QRect page(QPoint(0, 0), composition.page);
    printer.fill(place(page), m_values.BackColor);
    const PlacedImage seen = seenPart(m_picture.image(), composition.picture, page);
    printer.draw(seen.image, place(seen.place), place(page));
    for (const QRect& side : composition.border) {
        if (!side.isEmpty()) {
            printer.fill(place(side), m_values.BorderColor);
        }
    }
}

void AAPrintPicture::Hvprinter(bool landscape)
{
    m_isLandscape = landscape;
    if (platform::Printer* printer = core::currentPrinter()) {
        setOrientation(*printer);
    }
}
