#include "editing/frames/windows.h"

#include "core/window_registry.h"
#include "editing/frames/frame_window.h"

namespace frames {

void registerWindows()
{
    core::windows().add(core::Window::FrmBord, [] { return new FrmBord; });
}

} // namespace frames
