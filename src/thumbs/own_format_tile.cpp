#include "core/own_formats.h"
#include "platform/pictures/picture_box.h"
#include "thumbs/thumbnail_list.h"

#include <QPointer>

void ThumbNailList::openPsd(const QString& path)
{
    const QPointer<ThumbNailList> alive = this;
    platform::PictureBox box;
    const auto picture = core::loadOwnFormat(path, box, platform::OnFailure::Stop);
    if (alive != nullptr && picture) {
        m_surface.P_load = {*picture, QSize(picture->width(), picture->height())};
    }
}
