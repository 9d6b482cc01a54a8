#pragma once

#include <QImage>
#include <QSize>
#include <memory>

class QIODevice;

namespace platform {

// Reads one JPEG picture from a device that is open at its first byte and outlives the decoder.
// Files are not trusted: any error, and any number of scans that only serves to keep a decoder
// busy, ends in a null image.
class JpegDecoder {
public:
    // Reads the header only.
    explicit JpegDecoder(QIODevice& device);
    ~JpegDecoder();
    JpegDecoder(const JpegDecoder&) = delete;
    JpegDecoder& operator=(const JpegDecoder&) = delete;

    // Pixels of the whole picture as it is shown, its orientation applied. Empty when the file is
    // no readable JPEG.
    [[nodiscard]] QSize naturalSize() const;

    // The picture in QImage::Format_RGB32, upright. It is decoded at the smallest whole number of
    // eighths of its natural size that isn't smaller than covered in either direction, and at most
    // at its natural size. A file that ends early gives what it holds, grey below. Called once.
    [[nodiscard]] QImage decode(QSize covered);

private:
    struct State;

    std::unique_ptr<State> m_state;
};

} // namespace platform
