#include "core/picture_required.h"

#include "core/constants.h"
#include "core/viewer.h"
#include "platform/desktop/dialogs.h"

namespace core {

namespace {

const QString kNoPictureText = QStringLiteral("No picture to process.");

} // namespace

bool requirePicture(const Viewer& viewer)
{
    const bool hasPicture = viewer.PictureExists();
    if (!hasPicture) {
        reportNoPicture();
    }
    return hasPicture;
}

void reportNoPicture()
{
    platform::dialogs().showMessage(kNoPictureText, kProgramName, platform::BoxIcon::Information);
}

} // namespace core
