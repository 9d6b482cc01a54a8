#include "publishing/printing/windows.h"

#include "core/window_registry.h"
#include "publishing/printing/print_window.h"

namespace printing {

void registerWindows()
{
    core::windows().add(core::Window::frmTemp, [] { return new frmTemp; });
}

} // namespace printing
