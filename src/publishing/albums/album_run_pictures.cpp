#include "publishing/albums/album_run_pictures.h"

#include "core/working_files.h"
#include "platform/pictures/jpeg_converter.h"

namespace albums {

using core::WorkingFile;

namespace {

// A working file that couldn't be written may hold another picture, which isn't for this target.
void compressThroughFile(const platform::Picture& picture, const QString& target, int quality)
{
    if (core::saveAs(WorkingFile::AlbumPage, picture)) {
        static_cast<void>(BMPToJPG(core::workingFile(WorkingFile::AlbumPage), target, quality));
    }
}

} // namespace

void compress(const platform::Picture& picture, const QString& target, const JpegWay& way)
{
    if (way.throughWorkingFile) {
        compressThroughFile(picture, target, way.quality);
        return;
    }
    static_cast<void>(platform::saveJpeg(picture, target, way.quality));
}

} // namespace albums
