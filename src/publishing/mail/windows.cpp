#include "publishing/mail/windows.h"

#include "core/window_registry.h"
#include "publishing/mail/mail_setup_window.h"
#include "publishing/mail/mail_window.h"

namespace mail {

void registerWindows()
{
    core::windows().add(core::Window::frmConfig, [] { return new frmConfig; });
    core::windows().add(core::Window::frmMailSender, [] { return new frmMailSender; });
}

} // namespace mail
