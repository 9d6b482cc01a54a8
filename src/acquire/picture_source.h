#pragma once

#include <cstdint>

class QWidget;

namespace acquire {

// Where pictures come from that are acquired. Both calls show windows of their own over the one
// given, which may have gone when they return.
class PictureSource {
public:
    virtual ~PictureSource() = default;

    // Lets the user choose among the sources. 1 for a choice, 0 without one.
    virtual int selectImageSource(QWidget* window) = 0;
    // Puts a picture on the clipboard. 1 when it is there, else 0, and the clipboard holds what it
    // held. The kinds of pixels are up to the user for 0, which is all that is asked for.
    virtual int acquireToClipboard(QWidget* window, std::int16_t pixelTypes) = 0;
};

// The scanners, or what a test put in their place.
[[nodiscard]] PictureSource& pictureSource();

class ScopedPictureSource {
public:
    explicit ScopedPictureSource(PictureSource& replacement);
    ~ScopedPictureSource();
    ScopedPictureSource(const ScopedPictureSource&) = delete;
    ScopedPictureSource& operator=(const ScopedPictureSource&) = delete;

private:
    PictureSource* m_previous;
};

} // namespace acquire
