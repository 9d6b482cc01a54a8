// Prints one document and ends without another look at it.

#include "platform/devices/printers.h"

#include <QGuiApplication>

int main(int count, char** texts)
{
    const QGuiApplication application(count, texts);
    const auto printer = platform::printers().open(QStringLiteral("Desk"), {});
    if (!printer->startDocument(QStringLiteral("Late"))) {
        return 1;
    }
    QImage picture(3000, 3000, QImage::Format_RGB32);
    picture.fill(Qt::red);
    printer->draw(picture, {0, 0, 1000, 1000});
    return printer->endDocument(2) ? 0 : 1;
}
