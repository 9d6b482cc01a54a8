#pragma once

#include "platform/os/files.h"
#include "platform/pictures/jpeg_encoder.h"
#include "platform/pictures/picture.h"

#include <QImage>
#include <QString>
#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

// Reads a bitmap file and writes it as a JPEG file of the given quality, 1 to 100. The low 16 bits
// of the result are 0 on success, and the file is on the disk then. Otherwise the target is what it
// was before: a source that can't be read, a side beyond 65500 pixels, a target that can't be
// written or that is the source itself.
[[nodiscard]] int BMPToJPG(const QString& sourceBmpPath, const QString& targetJpgPath, int quality);

namespace platform {

// The same of a picture in memory, whose transparent parts become white. True on success.
[[nodiscard]] bool saveJpeg(const Picture& picture, const QString& path, int quality,
                            Flush flush = Flush::No);

// A bitmap file that is converted again and again: its pixels are read once and kept until the file
// changes.
class BitmapSource {
public:
    explicit BitmapSource(const QString& path);

    [[nodiscard]] const QString& path() const { return m_path; }

    // The pixels as QImage::Format_RGB32; null when the file can't be read now.
    [[nodiscard]] const QImage& image();

private:
    // Device, number, bytes and time of a file, which together tell one version of it from another.
    using Version = std::array<std::int64_t, 5>;

    [[nodiscard]] std::optional<Version> currentVersion() const;

    QString m_path;
    std::optional<Version> m_version;
    QImage m_image;
};

// BMPToJPG in pieces, so that the caller can look after events meanwhile or give up: a conversion
// that is destroyed before its end leaves the target alone.
class JpegConversion {
public:
    enum class Progress { Working, Converted, Failed };

    JpegConversion(BitmapSource& source, const QString& target, int quality,
                   Flush flush = Flush::No);

    // Works for about this long. The file is written in the call that gives Converted.
    [[nodiscard]] Progress work(std::chrono::milliseconds time);

    // The result that BMPToJPG gives, once it is known.
    [[nodiscard]] int result() const { return m_result; }

private:
    Progress finish();

    QString m_target;
    Flush m_flush;
    JpegEncoder m_encoder;
    int m_result;
};

} // namespace platform
