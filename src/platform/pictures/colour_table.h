#pragma once

#include <QRgb>
#include <array>
#include <cstdint>
#include <vector>

namespace platform {

using ColourTable = std::array<QRgb, 256>;

// A colour, or the mean of several that are alike, and the pixels that have it. Channels 0 to 255.
struct WeightedColour {
    float red = 0;
    float green = 0;
    float blue = 0;
    float weight = 0;
};

// Finds the entry of a colour table nearest to a colour, by squared distance.
class NearestColour {
public:
    explicit NearestColour(const std::vector<WeightedColour>& entries);

    // The entry's number in the list given. The list must not be empty.
    [[nodiscard]] std::uint8_t find(const WeightedColour& colour) const;

private:
    struct Entry {
        float red;
        float green;
        float blue;
        std::uint8_t number;
    };
    // By green; a search begins at the colour's own green and goes both ways while green alone
    // leaves hope for something nearer.
    std::vector<Entry> m_entries;
    std::array<int, 257> m_firstByGreen{};
};

// At most 256 colours that stand for all of the given ones with a small mean squared error: boxes
// are cut at their best place until there are enough, then settled by a few rounds of averaging.
[[nodiscard]] std::vector<WeightedColour>
representativeColours(const std::vector<WeightedColour>& colours);

// The table's entries as opaque pixels; black fills it up.
[[nodiscard]] ColourTable tableOf(const std::vector<WeightedColour>& entries);

} // namespace platform
