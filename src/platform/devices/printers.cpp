#include "platform/devices/printers.h"

#include "platform/devices/printed_paper.h"
#include "platform/devices/queue_printers.h"

#include <utility>

namespace platform {

namespace {

Printers* g_printers = nullptr;

} // namespace

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
