#include "editing/image_commands.h"

#include "core/constants.h"
#include "core/picture_display.h"
#include "core/picture_required.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/window_registry.h"
#include "editing/edit_steps.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/transforms.h"

#include <QWidget>
#include <algorithm>
#include <array>

namespace editing {

namespace {

const QString kNothingToResample = QStringLiteral("Nothing to resample");
constexpr int kColorSubmenu = 0;

// Image1 holds the viewer's picture when an edit begins.
QImage pixelsInHand(core::PictureDisplay& display)
{
    return display.Image1().picture().flattened();
}

void flip(core::PictureDisplay& display, const QImage& flipped)
{
    if (flipped.isNull()) {
        return;
    }
    display.Image1().setPicture(platform::Picture(flipped));
    showThroughWorkingFile(display, display.Image1());
}

void flipVertical(core::PictureDisplay& display)
{
    flip(display, platform::flippedTopToBottom(pixelsInHand(display)));
}

void flipHorizontal(core::PictureDisplay& display)
{
    flip(display, platform::flippedLeftToRight(pixelsInHand(display)));
}

void mirror(core::PictureDisplay& display, platform::Half kept)
{
    const QImage result = platform::mirrored(pixelsInHand(display), kept);
    if (result.isNull()) {
        return;
    }
    display.Image1().setPicture(platform::Picture(result));
    display.viewer().setPicture(display.Image1().drawnImage());
}

// Both entries work across the vertical centre line, whatever their captions say.
void mirrorVertical(core::PictureDisplay& display)
{
    mirror(display, platform::Half::Left);
}

void mirrorHorizontal(core::PictureDisplay& display)
{
    mirror(display, platform::Half::Right);
}

void scale(core::PictureDisplay& display)
{
    if (!display.viewer().PictureExists()) {
        platform::dialogs().showMessage(kNothingToResample, core::kProgramName,
                                        platform::BoxIcon::Information);
        return;
    }
    const int width = display.viewer().PictureWidth();
    const int height = display.viewer().PictureHeight();
    core::state().ResizeSourceWidth = width;
    core::state().ResizeSourceHeight = height;
    core::state().ResizeCancelled = true;
    platform::setPointer(platform::Pointer::Default);
    core::windows().show(core::Window::Form4, core::ShowMode::Modal);
    if (!platform::pump() || core::state().ResizeCancelled) {
        return;
    }
    if (display.viewer().PictureWidth() != width || display.viewer().PictureHeight() != height) {
        display.rebuildSizeText();
    }
    display.viewer().Refresh();
}

struct ImageEntry {
    int index;
    void (*run)(core::PictureDisplay&);
};

constexpr std::array kImageEntries{ImageEntry{2, flipVertical}, ImageEntry{3, flipHorizontal},
                                   ImageEntry{4, mirrorVertical}, ImageEntry{5, mirrorHorizontal},
                                   ImageEntry{7, scale}};

} // namespace

void optImage(core::PictureDisplay& display, int index)
{
    if (!core::requirePicture(display.viewer())) {
        return;
    }
    const platform::PointerGuard hourglass;
    keepBeforeEdit(display);
    if (index == kColorSubmenu) {
        return;
    }
    const auto entry = std::find_if(kImageEntries.begin(), kImageEntries.end(),
                                    [index](const ImageEntry& row) { return row.index == index; });
    if (entry != kImageEntries.end()) {
        entry->run(display);
    }
    if (platform::isClosing()) {
        return;
    }
    display.viewer().PanViewRefresh();
    display.viewer().Refresh();
}

} // namespace editing
