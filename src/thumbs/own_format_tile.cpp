#include "platform/paths.h"
#include "platform/picture_loader.h"
#include "platform/picture_saver.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/raw_image_show.h"

// The decoded picture goes the way of all foreign pictures, through the working file.
void ThumbNailList::openPsd(const QString& path)
{
    platform::PictureBox box;
    const QString workingFile = platform::appFile("temp.bmp");
    if (!viewer::decodeToBox(path, box) || !platform::savePicture(box.drawnImage(), workingFile)) {
        return;
    }
    if (const auto picture = platform::loadPicture(workingFile)) {
        m_loaded = {*picture, QSize(picture->width(), picture->height())};
    }
}
