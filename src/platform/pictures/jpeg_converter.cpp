#include "platform/pictures/jpeg_converter.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"

#include <QByteArray>
#include <sys/stat.h>

namespace platform {

namespace {

enum Result { kConverted = 0, kNoSource = 1, kNotEncoded = 2, kNotWritten = 3 };

// Rows between two looks at the clock: two rows of the blocks that an encoder works in.
constexpr int kRowsAtOnce = 32;

bool readFacts(const QString& path, struct stat& facts)
{
    return ::stat(toNative(path).c_str(), &facts) == 0;
}

bool areSameFile(const QString& left, const QString& right)
{
    struct stat leftFacts = {};
    struct stat rightFacts = {};
    return readFacts(left, leftFacts) && readFacts(right, rightFacts) &&
           leftFacts.st_dev == rightFacts.st_dev && leftFacts.st_ino == rightFacts.st_ino;
}

bool save(const JpegEncoder& encoder, const QString& path, Flush flush)
{
    const std::span<const std::byte> bytes = encoder.bytes();
    // Only lends the bytes: the encoder outlives the write.
    const auto lent = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    return writeFileWhole(path, lent, flush);
}

} // namespace

bool saveJpeg(const Picture& picture, const QString& path, int quality, Flush flush)
{
    JpegEncoder encoder(picture.flattened(), quality);
    return encoder.encodeAll() && save(encoder, path, flush);
}

BitmapSource::BitmapSource(const QString& path)
    : m_path(path)
{
}

std::optional<BitmapSource::Version> BitmapSource::currentVersion() const
{
    struct stat facts = {};
    if (!readFacts(m_path, facts)) {
        return std::nullopt;
    }
    return Version{static_cast<std::int64_t>(facts.st_dev), static_cast<std::int64_t>(facts.st_ino),
                   facts.st_size, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec};
}

const QImage& BitmapSource::image()
{
    const std::optional<Version> version = currentVersion();
    if (!version || version != m_version) {
        const std::optional<Picture> picture = loadPicture(m_path);
        m_image = picture ? picture->flattened() : QImage();
        m_version = version;
    }
    return m_image;
}

JpegConversion::JpegConversion(BitmapSource& source, const QString& target, int quality,
                               Flush flush)
    : m_target(target)
    , m_flush(flush)
    , m_encoder(source.image(), quality)
    , m_result(source.image().isNull() ? kNoSource : kNotEncoded)
{
    if (areSameFile(source.path(), target)) {
        m_result = kNotWritten;
    }
}

JpegConversion::Progress JpegConversion::work(std::chrono::milliseconds time)
{
    if (m_result != kNotEncoded) {
        return m_result == kConverted ? Progress::Converted : Progress::Failed;
    }
    const auto end = std::chrono::steady_clock::now() + time;
    auto progress = JpegEncoder::Progress::MoreRows;
    while (progress == JpegEncoder::Progress::MoreRows) {
        progress = m_encoder.encodeRows(kRowsAtOnce);
        if (std::chrono::steady_clock::now() >= end) {
            break;
        }
    }
    switch (progress) {
    case JpegEncoder::Progress::MoreRows:
        return Progress::Working;
    case JpegEncoder::Progress::Done:
        return finish();
    case JpegEncoder::Progress::Failed:
        break;
    }
    return Progress::Failed;
}

JpegConversion::Progress JpegConversion::finish()
{
    m_result = save(m_encoder, m_target, m_flush) ? kConverted : kNotWritten;
    return m_result == kConverted ? Progress::Converted : Progress::Failed;
}

} // namespace platform

int BMPToJPG(const QString& sourceBmpPath, const QString& targetJpgPath, int quality)
{
    platform::BitmapSource source(sourceBmpPath);
    platform::JpegConversion conversion(source, targetJpgPath, quality, platform::Flush::ToDisk);
    while (conversion.work(std::chrono::hours(1)) == platform::JpegConversion::Progress::Working) {
    }
    return conversion.result();
}
