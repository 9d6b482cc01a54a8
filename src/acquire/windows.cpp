#include "acquire/windows.h"

#include "acquire/acquire_window.h"
#include "acquire/capture_icon_window.h"
#include "acquire/capture_window.h"
#include "acquire/colour_picker_window.h"
#include "core/window_registry.h"

namespace acquire {

void registerWindows()
{
    core::windows().add(core::Window::Acquire, [] { return new Acquire; });
    core::windows().add(core::Window::frmCapture, [] { return new frmCapture; });
    core::windows().add(core::Window::frmCaputreN, [] { return new frmCaputreN; });
    core::windows().add(core::Window::frmGetColor, [] { return new frmGetColor; });
}

} // namespace acquire
