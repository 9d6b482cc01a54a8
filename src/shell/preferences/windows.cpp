#include "shell/preferences/windows.h"

#include "core/window_registry.h"
#include "shell/preferences/folder_chooser_window.h"
#include "shell/preferences/options_window.h"

namespace preferences {

void registerWindows()
{
    core::windows().add(core::Window::OptionsForm, [] { return new OptionsForm; });
    core::windows().add(core::Window::FilePreivew, [] { return new FilePreivew; });
}

} // namespace preferences
