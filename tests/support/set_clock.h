#pragma once

#include "platform/os/clock.h"

namespace support {

// A clock that stands where a test sets it, in place while it lives. With a step it moves on by
// that much each time somebody looks.
class SetClock : public platform::Clock {
public:
    mutable double seconds = 1000; // of the day, and steady ones too
    double step = 0;

    [[nodiscard]] double secondsOfDay() const override { return look(); }
    [[nodiscard]] double steadySeconds() const override { return look(); }

private:
    double look() const
    {
        seconds += step;
        return seconds;
    }

    platform::ScopedClock m_inPlace{*this};
};

} // namespace support
