#pragma once

#include <QString>

namespace core {
class PictureDisplay;
}

namespace viewer {

// Shows a file in one of the own formats on the main window: decodes it onto Image1, takes what
// stands there through the working file into the viewer, and writes panels 6 and 7.
// A step that fails leaves what stood before and the next one runs; when nothing was ever decoded,
// no file is written and the viewer stays as it is. The pointer is the default one afterwards.
void showOwnFormat(core::PictureDisplay& display, const QString& path);

} // namespace viewer
