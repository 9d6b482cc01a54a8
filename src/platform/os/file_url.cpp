#include "platform/os/file_url.h"

#include "platform/os/paths.h"

namespace platform {

QByteArray percentEncoded(const QString& path)
{
    return QByteArray::fromStdString(toNative(path)).toPercentEncoding("/");
}

QString fileAddress(const QString& path)
{
    return QStringLiteral("file://") + QString::fromLatin1(percentEncoded(path));
}

QUrl fileUrl(const QString& path)
{
    return QUrl::fromEncoded(fileAddress(path).toLatin1());
}

} // namespace platform
