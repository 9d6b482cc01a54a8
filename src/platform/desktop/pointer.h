#pragma once

namespace platform {

// Shapes of the screen's mouse pointer that commands switch between; numbers as commands know them.
enum class Pointer { Default = 0, SizeNS = 7, HourGlass = 11, ArrowHourGlass = 13 };

// Sets the pointer for all windows of the program. Default takes the override away.
void setPointer(Pointer pointer);
[[nodiscard]] Pointer pointer();

// The given shape while it lives, the one before afterwards.
class PointerGuard {
public:
    explicit PointerGuard(Pointer shape = Pointer::HourGlass)
        : m_before(pointer())
    {
        setPointer(shape);
    }
    ~PointerGuard() { setPointer(m_before); }
    PointerGuard(const PointerGuard&) = delete;
    PointerGuard& operator=(const PointerGuard&) = delete;

private:
    Pointer m_before;
};

// The default shape while it lives, what was before it afterwards: for what waits for the user.
class PointerPause {
public:
    PointerPause()
        : m_before(pointer())
    {
        setPointer(Pointer::Default);
    }
    ~PointerPause() { setPointer(m_before); }
    PointerPause(const PointerPause&) = delete;
    PointerPause& operator=(const PointerPause&) = delete;

private:
    Pointer m_before;
};

} // namespace platform
