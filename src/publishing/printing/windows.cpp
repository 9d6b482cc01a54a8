#include "publishing/printing/windows.h"

#include "core/window_registry.h"
#include "publishing/printing/contact_sheet_window.h"
#include "publishing/printing/print_window.h"

namespace printing {

void registerWindows()
{
    core::windows().add(core::Window::ContactSheets, [] { return new ContactSheetWindow; });
    core::windows().add(core::Window::frmTemp, [] { return new frmTemp; });
}

} // namespace printing
