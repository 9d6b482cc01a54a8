#pragma once

#include <QImage>
#include <QSize>
#include <cstddef>
#include <span>

namespace platform {

// How a camera held the picture, by the numbers of EXIF: 1 is upright, 2 to 4 are mirrored or
// upside down, 5 to 8 have rows and columns exchanged.
class Orientation {
public:
    Orientation() = default;

    // From the payload of a JPEG's APP1 segment; upright where it tells nothing sensible.
    [[nodiscard]] static Orientation fromExif(std::span<const std::byte> segment);

    [[nodiscard]] bool isUpright() const { return m_number == 1; }
    [[nodiscard]] bool exchangesSides() const { return m_number >= 5; }

    // From stored to shown sizes and back.
    [[nodiscard]] QSize applied(QSize size) const;

    // Puts stored rows where the shown picture has them. The rows are 32-bit pixels without gaps,
    // firstRow is the first one's place among the stored rows, and shown has the size
    // applied(stored size).
    void placeRows(QImage& shown, const quint32* rows, int firstRow, int rowCount) const;

private:
    explicit Orientation(int number)
        : m_number(number)
    {
    }

    int m_number = 1;
};

} // namespace platform
