#include "publishing/albums/windows.h"

#include "core/window_registry.h"
#include "publishing/albums/album_setup_window.h"

namespace albums {

void registerWindows()
{
    core::windows().add(core::Window::frmWebRelease, [] { return new frmWebRelease; });
}

} // namespace albums
