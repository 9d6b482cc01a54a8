#include "viewer/own_format_show.h"

#include "core/interfaces.h"
#include "core/own_formats.h"
#include "platform/desktop/pointer.h"

namespace viewer {

namespace {

const QString kPixelUnit = QStringLiteral("      Pixel");

} // namespace

void showOwnFormat(core::MainWindow& window, const QString& path)
{
    const platform::PointerGuard pointer;
    if (const auto picture =
            core::loadOwnFormat(path, window.Image1(), platform::OnFailure::GoOn)) {
        window.viewer().setPicture(*picture);
    }
    const core::Viewer& viewer = window.viewer();
    window.StateBar().setPanel(core::Panel::Width,
                               QString::number(viewer.PictureWidth()) + kPixelUnit);
    window.StateBar().setPanel(core::Panel::Height,
                               QString::number(viewer.PictureHeight()) + kPixelUnit);
}

} // namespace viewer
