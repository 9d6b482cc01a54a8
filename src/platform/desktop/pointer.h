#pragma once

namespace platform {

// Shapes of the screen's mouse pointer that commands switch between; numbers as commands know them.
enum class Pointer { Default = 0, SizeNS = 7, HourGlass = 11, ArrowHourGlass = 13 };

// Sets the pointer for all windows of the program. Default takes the override away.
void setPointer(Pointer pointer);
[[nodiscard]] Pointer pointer(); // what is shown

// The given shape while it lives, the one set before afterwards.
class PointerGuard {
public:
    explicit PointerGuard(Pointer shape = Pointer::HourGlass);
    ~PointerGuard();
    PointerGuard(const PointerGuard&) = delete;
    PointerGuard& operator=(const PointerGuard&) = delete;

private:
    Pointer m_before;
};

// The default shape while it lives, what was before it afterwards: for what waits for the user.
class PointerPause : public PointerGuard {
public:
    PointerPause()
        : PointerGuard(Pointer::Default)
    {
    }
};

// The hourglass while it lives wherever no other shape is set, for what events have to run for. It
// may end before or after whatever began meanwhile.
class PointerWait {
public:
    PointerWait();
    ~PointerWait();
    PointerWait(const PointerWait&) = delete;
    PointerWait& operator=(const PointerWait&) = delete;
};

} // namespace platform
