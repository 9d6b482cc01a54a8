#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace platform {

// The bytes of a path with all but plain characters and separators written as "%" and two digits.
QByteArray percentEncoded(const QString& path);

// A path as a file: address. Undecodable bytes stay what they are.
QString fileAddress(const QString& path);
QUrl fileUrl(const QString& path);

} // namespace platform
