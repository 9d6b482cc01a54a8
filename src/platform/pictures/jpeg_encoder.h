#pragma once

#include <QImage>
#include <cstddef>
#include <memory>
#include <span>

namespace platform {

// Turns a picture into the bytes of a JPEG file, some rows at a time, so that a caller can look
// after other things meanwhile or give up half-way.
class JpegEncoder {
public:
    // What a JPEG file can tell, in pixels.
    static constexpr int kLongestSide = 65500;

    // Takes an image in QImage::Format_RGB32 (others are converted) and a quality from 1 to 100;
    // values beyond are forced into that range.
    JpegEncoder(const QImage& image, int quality);
    ~JpegEncoder();
    JpegEncoder(const JpegEncoder&) = delete;
    JpegEncoder& operator=(const JpegEncoder&) = delete;

    enum class Progress { MoreRows, Done, Failed };

    // Encodes the next rows. An image that is null or longer than a JPEG can tell fails at once.
    [[nodiscard]] Progress encodeRows(int count);
    // Encodes all that is left; true when the file is complete.
    [[nodiscard]] bool encodeAll();

    // The finished file; empty before Done. Valid while the encoder lives.
    [[nodiscard]] std::span<const std::byte> bytes() const;

private:
    struct State;

    QImage m_image;
    int m_quality;
    int m_nextRow = 0;
    std::unique_ptr<State> m_state;
};

} // namespace platform
