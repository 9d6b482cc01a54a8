#include "editing/image_commands.h"

#include "core/interfaces.h"
#include "core/picture_required.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "editing/edit_steps.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/pictures/transforms.h"

#include <QWidget>
#include <algorithm>
#include <array>

namespace editing {

namespace {

const QString kNothingToResample = QStringLiteral("Nothing to resample");
constexpr int kColorSubmenu = 0;

// Image1 holds the viewer's picture when an edit begins.
QImage pixelsInHand(core::MainWindow& form)
{
    return form.Image1().picture().flattened();
}

void flip(core::MainWindow& form, const QImage& flipped)
{
    if (flipped.isNull()) {
        return;
    }
    form.Image1().setPicture(platform::Picture(flipped));
    showThroughWorkingFile(form, form.Image1());
}

void flipVertical(core::MainWindow& form)
{
    flip(form, platform::flippedTopToBottom(pixelsInHand(form)));
}

void flipHorizontal(core::MainWindow& form)
{
    flip(form, platform::flippedLeftToRight(pixelsInHand(form)));
}

void mirror(core::MainWindow& form, platform::Half kept)
{
    const QImage result = platform::mirrored(pixelsInHand(form), kept);
    if (result.isNull()) {
        return;
    }
    form.Image1().setPicture(platform::Picture(result));
    form.viewer().setPicture(form.Image1().drawnImage());
}

// Both entries work across the vertical centre line, whatever their captions say.
void mirrorVertical(core::MainWindow& form)
{
    mirror(form, platform::Half::Left);
}

void mirrorHorizontal(core::MainWindow& form)
{
    mirror(form, platform::Half::Right);
}

void scale(core::MainWindow& form)
{
    if (!form.viewer().PictureExists()) {
        platform::dialogs().showMessage(kNothingToResample, core::kProgramName,
                                        platform::BoxIcon::Information);
        return;
    }
    const int width = form.viewer().PictureWidth();
    const int height = form.viewer().PictureHeight();
    core::state().ResizeSourceWidth = width;
    core::state().ResizeSourceHeight = height;
    core::state().ResizeCancelled = true;
    platform::setPointer(platform::Pointer::Default);
    core::windows().show(core::Window::Form4, core::ShowMode::Modal);
    if (!platform::pump(form.window()) || core::state().ResizeCancelled) {
        return;
    }
    if (form.viewer().PictureWidth() != width || form.viewer().PictureHeight() != height) {
        form.rebuildSizeText();
    }
    form.viewer().Refresh();
}

struct ImageEntry {
    int index;
    void (*run)(core::MainWindow&);
};

constexpr std::array kImageEntries{ImageEntry{2, flipVertical}, ImageEntry{3, flipHorizontal},
                                   ImageEntry{4, mirrorVertical}, ImageEntry{5, mirrorHorizontal},
                                   ImageEntry{7, scale}};

} // namespace

void optImage(core::MainWindow& form, int index)
{
    if (!core::requirePicture(form.viewer())) {
        return;
    }
    const platform::PointerGuard hourglass;
    keepBeforeEdit(form);
    if (index == kColorSubmenu) {
        return;
    }
    const auto entry = std::find_if(kImageEntries.begin(), kImageEntries.end(),
                                    [index](const ImageEntry& row) { return row.index == index; });
    if (entry != kImageEntries.end()) {
        entry->run(form);
    }
    if (platform::isClosing()) {
        return;
    }
    form.viewer().PanViewRefresh();
    form.viewer().Refresh();
}

} // namespace editing
