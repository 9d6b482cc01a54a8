#pragma once

#include "formats/raw_image.h"
#include "platform/pictures/on_failure.h"
#include "platform/pictures/picture_box.h"

#include <QString>

// Draws a decoded record 1:1 at the top left of a box. Rows are taken at a stride rounded up to
// four bytes although Pixels is packed, so a picture whose rows aren't a multiple of four bytes
// long comes out sheared; what lies behind the end of Pixels is drawn as zeros.
void ShowRawImage(platform::PictureBox& box, const RawImage& image);

namespace platform {

// The way of a file in one of the own formats onto a box: takes the box's picture away, decodes
// into the record, gives the box the record's size and draws the record, which then is the box's
// drawn image. For a file that no reader accepts GoOn draws what the record holds. False, with the
// box empty at the size that it had, when nothing was drawn: after a refusal with Stop, and for a
// record without a size that a box can take (nothing was ever decoded).
[[nodiscard]] bool decodeToBox(const QString& path, PictureBox& box, RawImage& record,
                               OnFailure onRefusal);

} // namespace platform
