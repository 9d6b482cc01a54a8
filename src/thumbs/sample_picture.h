#pragma once

#include <QImage>

namespace thumbs {

// The picture that stands for any photo in previews: hills under an evening sky, 240 x 160.
[[nodiscard]] QImage samplePicture();

} // namespace thumbs
