#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"

#include <QTemporaryDir>

int main()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lone.bmp"));
    const QImage image(3, 2, QImage::Format_RGB32);
    const bool saved = platform::savePicture(platform::Picture(image), path);
    const auto picture = platform::loadPicture(path);
    return saved && picture && picture->width() == 3 ? 0 : 1;
}
