#include "platform/pictures/colour_reduction.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <span>

namespace platform {

namespace {

constexpr QRgb kColourMask = 0x00FFFFFFU;
constexpr std::size_t kBins = std::size_t{1} << 18U;
// So few coarse bins leave room for all colours that can lie in them.
constexpr std::size_t kFewBins = kBins / 64;

using Row = std::span<const QRgb>;

Row rowOf(const QImage& image, int y)
{
    // Rows of 32-bit images are aligned for their pixels.
    return {reinterpret_cast<const QRgb*>(image.constScanLine(y)),
            static_cast<std::size_t>(image.width())};
}

std::span<std::byte> rowOf(IndexedPicture& picture, int y)
{
    const auto row = static_cast<std::size_t>(picture.height - 1 - y);
    return std::span(picture.bits)
        .subspan(row * picture.stride, static_cast<std::size_t>(picture.width));
}

// ---- pictures of few colours ----

// Numbers up to 256 colours in the order they come.
class ExactColours {
public:
    ExactColours() { m_numbers.fill(kNone); }

    // The colour's number; nothing for a colour beyond the 256th.
    [[nodiscard]] std::optional<std::byte> number(QRgb colour)
    {
        const std::uint32_t start = (colour * 0x9E3779B1U) >> 22U;
        for (std::uint32_t slot = start;; slot = (slot + 1) % m_numbers.size()) {
            const std::uint16_t known = m_numbers[slot];
            if (known == kNone) {
                return learn(colour, slot);
            }
            if (m_table[known] == colour) {
                return static_cast<std::byte>(known);
            }
        }
    }

    [[nodiscard]] ColourTable table() const
    {
        ColourTable table;
        table.fill(qRgb(0, 0, 0));
        for (std::size_t i = 0; i < m_count; ++i) {
            table[i] = m_table[i] | ~kColourMask;
        }
        return table;
    }

private:
    static constexpr std::uint16_t kNone = 0xFFFF;

    std::optional<std::byte> learn(QRgb colour, std::uint32_t slot)
    {
        if (m_count == m_table.size()) {
            return std::nullopt;
        }
        m_table[m_count] = colour;
        m_numbers[slot] = static_cast<std::uint16_t>(m_count);
        return static_cast<std::byte>(m_count++);
    }

    std::array<std::uint16_t, 1024> m_numbers{};
    std::array<QRgb, 256> m_table{};
    std::size_t m_count = 0;
};

bool numberRow(Row row, std::span<std::byte> target, ExactColours& colours)
{
    // No masked colour equals this one, so the first pixel is always looked up.
    QRgb last = ~QRgb{0};
    std::byte lastNumber{};
    for (std::size_t x = 0; x < row.size(); ++x) {
        const QRgb colour = row[x] & kColourMask;
        if (colour != last) {
            const std::optional<std::byte> number = colours.number(colour);
            if (!number) {
                return false;
            }
            last = colour;
            lastNumber = *number;
        }
        target[x] = lastNumber;
    }
    return true;
}

bool numberExactly(const QImage& image, IndexedPicture& picture)
{
    ExactColours colours;
    for (int y = 0; y < picture.height; ++y) {
        if (!numberRow(rowOf(image, y), rowOf(picture, y), colours)) {
            return false;
        }
    }
    picture.table = colours.table();
    return true;
}

// ---- pictures of many colours ----

// The bin of a colour: the upper six bits of each channel.
std::size_t coarseBin(QRgb colour)
{
    return (colour >> 6U & 0x3F000U) | (colour >> 4U & 0xFC0U) | (colour >> 2U & 0x3FU);
}

std::size_t lowBits(QRgb colour)
{
    return (colour >> 12U & 0x30U) | (colour >> 6U & 0x0CU) | (colour & 0x03U);
}

// Pixels of one bin, and the sums of what their channels have above the bin's lowest values.
struct Bin {
    std::uint32_t count = 0;
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;
};

// All colours of a picture, those alike in one bin. Where they fill few bins, as the shades of a
// drawing do, every colour gets a bin of its own.
class ColourBins {
public:
    explicit ColourBins(const QImage& image)
        : m_bins(kBins)
    {
        count(image, coarseBin);
        const std::size_t used = static_cast<std::size_t>(
            std::count_if(m_bins.begin(), m_bins.end(), [](const Bin& bin) { return bin.count; }));
        if (used <= kFewBins) {
            refine(image);
        }
    }

    [[nodiscard]] std::vector<WeightedColour> colours() const
    {
        std::vector<WeightedColour> colours;
        forEachUsed([&](std::size_t bin) { colours.push_back(meanOf(bin)); });
        return colours;
    }

    // Gives each bin in use the number of the entry nearest to its mean.
    void assign(const std::vector<WeightedColour>& entries)
    {
        const NearestColour nearest(entries);
        m_numbers.resize(kBins);
        forEachUsed([&](std::size_t bin) {
            m_numbers[bin] = static_cast<std::byte>(nearest.find(meanOf(bin)));
        });
    }

    void mapRow(Row row, std::span<std::byte> target) const
    {
        if (m_dense.empty()) {
            mapRow(row, target, coarseBin);
        } else {
            mapRow(row, target, [this](QRgb colour) { return fineBin(colour); });
        }
    }

private:
    [[nodiscard]] std::size_t fineBin(QRgb colour) const
    {
        return std::size_t{m_dense[coarseBin(colour)]} * 64 + lowBits(colour);
    }

    template<typename BinOf> void count(const QImage& image, BinOf binOf)
    {
        const std::span<Bin> bins = m_bins;
        for (int y = 0; y < image.height(); ++y) {
            for (const QRgb colour : rowOf(image, y)) {
                Bin& bin = bins[binOf(colour)];
                ++bin.count;
                bin.red += colour >> 16U & 3U;
                bin.green += colour >> 8U & 3U;
                bin.blue += colour & 3U;
            }
        }
    }

    template<typename BinOf> void mapRow(Row row, std::span<std::byte> target, BinOf binOf) const
    {
        const std::span<const std::byte> numbers = m_numbers;
        for (std::size_t x = 0; x < row.size(); ++x) {
            target[x] = numbers[binOf(row[x])];
        }
    }

    void refine(const QImage& image)
    {
        m_dense.resize(kBins);
        for (std::size_t bin = 0; bin < kBins; ++bin) {
            if (m_bins[bin].count > 0) {
                m_dense[bin] = static_cast<std::uint16_t>(m_coarseOfDense.size());
                m_coarseOfDense.push_back(static_cast<std::uint32_t>(bin));
            }
        }
        std::fill(m_bins.begin(), m_bins.end(), Bin{});
        count(image, [this](QRgb colour) { return fineBin(colour); });
    }

    [[nodiscard]] WeightedColour meanOf(std::size_t number) const
    {
        const Bin& bin = m_bins[number];
        const std::size_t coarse = m_dense.empty() ? number : m_coarseOfDense[number / 64];
        const auto count = static_cast<float>(bin.count);
        const auto channel = [count](std::size_t upper, std::uint32_t sum) {
            return static_cast<float>((upper & 0x3FU) * 4) + static_cast<float>(sum) / count;
        };
        return {channel(coarse >> 12U, bin.red), channel(coarse >> 6U, bin.green),
                channel(coarse, bin.blue), count};
    }

    template<typename Use> void forEachUsed(Use use) const
    {
        for (std::size_t bin = 0; bin < m_bins.size(); ++bin) {
            if (m_bins[bin].count > 0) {
                use(bin);
            }
        }
    }

    std::vector<Bin> m_bins;
    std::vector<std::byte> m_numbers;
    // Places of the coarse bins in use, and back; empty unless every colour has its own bin.
    std::vector<std::uint16_t> m_dense;
    std::vector<std::uint32_t> m_coarseOfDense;
};

void numberNearest(const QImage& image, IndexedPicture& picture)
{
    ColourBins bins(image);
    const std::vector<WeightedColour> entries = representativeColours(bins.colours());
    bins.assign(entries);
    for (int y = 0; y < picture.height; ++y) {
        bins.mapRow(rowOf(image, y), rowOf(picture, y));
    }
    picture.table = tableOf(entries);
}

} // namespace

std::optional<IndexedPicture> reduceColours(const QImage& image)
{
    const bool readable =
        image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32;
    const QImage pixels = readable ? image : image.convertToFormat(QImage::Format_RGB32);
    if (pixels.isNull()) {
        return std::nullopt;
    }
    IndexedPicture picture;
    picture.width = pixels.width();
    picture.height = pixels.height();
    picture.stride = (static_cast<std::size_t>(picture.width) + 3) / 4 * 4;
    try {
        picture.bits.resize(picture.stride * static_cast<std::size_t>(picture.height));
        if (!numberExactly(pixels, picture)) {
            numberNearest(pixels, picture);
        }
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
    return picture;
}

} // namespace platform
