#include "platform/os/clock.h"

#include <QTime>
#include <chrono>
#include <utility>

namespace platform {

namespace {

const Clock* g_clock = nullptr;

class SystemClock : public Clock {
public:
    [[nodiscard]] double secondsOfDay() const override
    {
        return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
    }
    [[nodiscard]] double steadySeconds() const override
    {
        const auto past = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration<double>(past).count();
    }
};

} // namespace

const Clock& theClock()
{
    static const SystemClock real;
    return g_clock != nullptr ? *g_clock : real;
}

ScopedClock::ScopedClock(const Clock& replacement)
    : m_previous(std::exchange(g_clock, &replacement))
{
}

ScopedClock::~ScopedClock()
{
    g_clock = m_previous;
}

} // namespace platform
