#include "viewer/open_psd.h"

#include "core/interfaces.h"
#include "core/state.h"
#include "core/working_files.h"
#include "platform/desktop/pointer.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"
#include "platform/pictures/raw_image_drawing.h"

#include <tuple>

namespace viewer {

namespace {

const QString kPixelUnit = QStringLiteral("      Pixel");

// The file is read back even where it couldn't be written: then the last one shows.
void showThroughWorkingFile(core::MainWindow& window)
{
    const QString workingFile = core::workingFile(core::WorkingFile::Picture);
    std::ignore = platform::savePicture(window.Image1().drawnImage(), workingFile);
    if (const auto picture = platform::loadPicture(workingFile)) {
        window.viewer().setPicture(*picture);
    }
}

} // namespace

void openPsd(core::MainWindow& window, const QString& path)
{
    const platform::PointerGuard pointer;
    if (platform::decodeToBox(path, window.Image1(), core::state().rawImage)) {
        showThroughWorkingFile(window);
    }
    const core::Viewer& viewer = window.viewer();
    window.StateBar().setPanel(core::Panel::Width,
                               QString::number(viewer.PictureWidth()) + kPixelUnit);
    window.StateBar().setPanel(core::Panel::Height,
                               QString::number(viewer.PictureHeight()) + kPixelUnit);
}

} // namespace viewer
