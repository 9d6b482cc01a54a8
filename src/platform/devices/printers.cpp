#include "platform/devices/printers.h"

#include "platform/devices/printed_paper.h"
#include "platform/devices/queue_printers.h"

#include <utility>

namespace platform {

namespace {

Printers* g_printers = nullptr;

} // namespace

QSizeF innerMillimetres(const PaperMetrics& metrics)
{
    if (metrics.isEmpty()) {
        return {0, 0};
    }
    return {metrics.innerWidth * kMillimetresInInch / metrics.logPixelsX,
            metrics.innerHeight * kMillimetresInInch / metrics.logPixelsY};
}

QRectF printerPixels(const PaperMetrics& metrics, const QRectF& millimetres)
{
    const double x = metrics.logPixelsX / kMillimetresInInch;
    const double y = metrics.logPixelsY / kMillimetresInInch;
    return {millimetres.x() * x, millimetres.y() * y, millimetres.width() * x,
            millimetres.height() * y};
}

Printers& printers()
{
    static QueuePrinters real;
    return g_printers != nullptr ? *g_printers : real;
}

ScopedPrinters::ScopedPrinters(Printers& replacement)
    : m_previous(std::exchange(g_printers, &replacement))
{
}

ScopedPrinters::~ScopedPrinters()
{
    g_printers = m_previous;
}

} // namespace platform
