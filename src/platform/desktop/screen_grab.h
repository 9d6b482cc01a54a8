#pragma once

#include "platform/desktop/frozen_desktop.h"

#include <functional>

class QObject;

namespace platform {

// Takes pictures of the whole desktop, without the pointer.
class ScreenGrab {
public:
    using Done = std::function<void(std::optional<FrozenDesktop>)>;

    virtual ~ScreenGrab() = default;

    // Calls back once, before it returns or later, unless the owner is gone by then. Nothing: the
    // desktop has no way to it, its user said no, or it doesn't answer.
    virtual void take(QObject& owner, Done done) = 0;
};

// The real one, or the one that a test put in its place.
[[nodiscard]] ScreenGrab& screenGrab();

class ScopedScreenGrab {
public:
    explicit ScopedScreenGrab(ScreenGrab& replacement);
    ~ScopedScreenGrab();
    ScopedScreenGrab(const ScopedScreenGrab&) = delete;
    ScopedScreenGrab& operator=(const ScopedScreenGrab&) = delete;

private:
    ScreenGrab* m_previous;
};

} // namespace platform
