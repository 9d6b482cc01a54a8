#include "platform/devices/scanners.h"

#include "platform/devices/helper_scanners.h"

#include <utility>

namespace platform {

namespace {

Scanners* g_scanners = nullptr;

} // namespace

Scanners& scanners()
{
    static HelperScanners real;
    return g_scanners != nullptr ? *g_scanners : real;
}

ScopedScanners::ScopedScanners(Scanners& replacement)
    : m_previous(std::exchange(g_scanners, &replacement))
{
}

ScopedScanners::~ScopedScanners()
{
    g_scanners = m_previous;
}

} // namespace platform
