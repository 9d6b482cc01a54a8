#pragma once

#include <QByteArray>
#include <QImage>
#include <optional>

namespace metafile_helper {

// All bytes that a descriptor gives; nothing on an error, or when they are more than most.
[[nodiscard]] std::optional<QByteArray> readAll(int descriptor, qint64 most);

// Writes head and rows of an answer. False when the reader has gone or there is no memory for them.
[[nodiscard]] bool writeAnswer(int descriptor, const QImage& image);

} // namespace metafile_helper
