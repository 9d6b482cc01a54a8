#include "editing/windows.h"

#include "core/window_registry.h"
#include "editing/jpeg_window.h"
#include "editing/scale_window.h"
#include "editing/switch_window.h"

namespace editing {

void registerWindows()
{
    core::windows().add(core::Window::Form4, [] { return new Form4; });
    core::windows().add(core::Window::frmSaveJPGc, [] { return new frmSaveJPGc; });
    core::windows().add(core::Window::FrmSwitch, [] { return new FrmSwitch; });
}

} // namespace editing
