#include "viewer/own_format_show.h"

#include "core/own_formats.h"
#include "core/picture_display.h"
#include "core/status_bar.h"
#include "core/viewer.h"
#include "platform/desktop/pointer.h"
#include "platform/pictures/picture_box.h"

namespace viewer {

namespace {

const QString kPixelUnit = QStringLiteral("      Pixel");

} // namespace

void showOwnFormat(core::PictureDisplay& display, const QString& path)
{
    const platform::PointerGuard pointer;
    if (const auto picture =
            core::loadOwnFormat(path, display.Image1(), platform::OnFailure::GoOn)) {
        display.viewer().setPicture(*picture);
    }
    const core::Viewer& viewer = display.viewer();
    display.StateBar().setPanel(core::Panel::Width,
                                QString::number(viewer.PictureWidth()) + kPixelUnit);
    display.StateBar().setPanel(core::Panel::Height,
                                QString::number(viewer.PictureHeight()) + kPixelUnit);
}

} // namespace viewer
