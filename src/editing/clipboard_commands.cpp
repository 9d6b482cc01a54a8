#include "editing/clipboard_commands.h"

#include "core/picture_display.h"
#include "core/picture_in_hand.h"
#include "core/picture_required.h"
#include "core/viewer.h"
#include "platform/desktop/clipboard.h"

namespace editing {

namespace {

bool putOnClipboard(core::PictureDisplay& display)
{
    return platform::setClipboardPicture(display.viewer().Picture());
}

} // namespace

void copyPicture(core::PictureDisplay& display)
{
    if (core::requirePicture(display.viewer())) {
        static_cast<void>(putOnClipboard(display));
    }
}

void cutPicture(core::PictureDisplay& display)
{
    if (core::requirePicture(display.viewer()) && putOnClipboard(display)) {
        display.viewer().Clear();
    }
}

void pastePicture(core::PictureDisplay& display, core::FileField& field)
{
    if (const auto pasted = platform::clipboardPicture()) {
        core::takeInHand(*pasted, display, field);
    }
}

} // namespace editing
