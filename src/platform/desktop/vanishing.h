#pragma once

#include <functional>

class QObject;
class QWidget;

namespace platform {

// Calls back once a window that was minimised or hidden has left the screen and what lay below it
// has had the time to appear, unless the owner is gone by then. False: it is still there after a
// second, as on desktops that don't minimise.
void whenVanished(QWidget& window, QObject& owner, std::function<void(bool vanished)> then);

} // namespace platform
