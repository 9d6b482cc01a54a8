#include "core/state.h"
#include "core/working_files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"
#include "platform/pictures/raw_image_drawing.h"
#include "thumbs/thumbnail_list.h"

#include <QPointer>

// The decoded picture goes the way of all foreign pictures, through the working file.
void ThumbNailList::openPsd(const QString& path)
{
    const QPointer<ThumbNailList> alive = this;
    platform::PictureBox box;
    const QString workingFile = core::workingFile(core::WorkingFile::Picture);
    if (!platform::decodeAcceptedToBox(path, box, core::state().rawImage) ||
        !platform::savePicture(box.drawnImage(), workingFile)) {
        return;
    }
    const auto picture = platform::loadPicture(workingFile);
    if (alive != nullptr && picture) {
        m_loaded = {*picture, QSize(picture->width(), picture->height())};
    }
}
