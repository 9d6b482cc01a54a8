#include "platform/os/file_url.h"

#include "platform/os/paths.h"

namespace platform {

QByteArray percentEncoded(const QString& path)
{
    return QByteArray::fromStdString(toNative(path)).toPercentEncoding("/");
}

QUrl fileUrl(const QString& path)
{
    return QUrl::fromEncoded("file://" + percentEncoded(path));
}

} // namespace platform
