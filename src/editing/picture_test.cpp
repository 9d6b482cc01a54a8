#include "editing/picture_test.h"

#include "core/constants.h"
#include "core/interfaces.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"

namespace editing {

bool hasPicture(core::MainWindow& form)
{
    if (form.viewer().PictureExists()) {
        return true;
    }
    platform::setPointer(platform::Pointer::Default);
    platform::dialogs().showMessage(core::kNoPictureText, core::kProgramName,
                                    platform::BoxIcon::Information);
    return false;
}

} // namespace editing
