#pragma once

namespace platform {

// The time of day and the time that passes, for whoever waits with a limit. Tests set another one.
class Clock {
public:
    virtual ~Clock() = default;

    // Since local midnight, with fractions; it begins again at 0 each midnight.
    [[nodiscard]] virtual double secondsOfDay() const = 0;
    // Since some moment of the past; never goes back.
    [[nodiscard]] virtual double steadySeconds() const = 0;
};

// The computer's, or the one that a test put in its place.
[[nodiscard]] const Clock& theClock();

class ScopedClock {
public:
    explicit ScopedClock(const Clock& replacement);
    ~ScopedClock();
    ScopedClock(const ScopedClock&) = delete;
    ScopedClock& operator=(const ScopedClock&) = delete;

private:
    const Clock* m_previous;
};

} // namespace platform
