#include "metafile_writers.h"

#include "poster.h"

#include <algorithm>
#include <span>
#include <vector>

namespace tools {

namespace {

constexpr unsigned kUnitsPerInch = 96 * Poster::kUnitsPerPixel;

// Colours of both formats have red in the lowest byte.
std::uint32_t colourNumber(QRgb colour)
{
    return static_cast<std::uint32_t>(qRed(colour) | (qGreen(colour) << 8) | (qBlue(colour) << 16));
}

unsigned coordinate(int value)
{
    return static_cast<unsigned>(value) & 0xFFFFU;
}

std::uint32_t unsignedOf(int value)
{
    return static_cast<std::uint32_t>(value);
}

enum WmfFunction : unsigned {
    kWmfEnd = 0x0000,
    kWmfFillMode = 0x0106,
    kWmfSelect = 0x012D,
    kWmfDelete = 0x01F0,
    kWmfOrigin = 0x020B,
    kWmfExtent = 0x020C,
    kWmfPen = 0x02FA,
    kWmfBrush = 0x02FC,
    kWmfPolygon = 0x0324
};

// Lengths of old metafiles count words of two bytes.
class WmfRecords {
public:
    void add(WmfFunction function, std::span<const unsigned> words)
    {
        const auto length = static_cast<std::uint32_t>(words.size() + 3);
        m_longest = std::max(m_longest, length);
        m_sink.little32(length);
        m_sink.little16(function);
        for (const unsigned word : words) {
            m_sink.little16(word);
        }
    }

    void add(WmfFunction function, std::initializer_list<unsigned> words)
    {
        add(function, std::span(words.begin(), words.size()));
    }

    [[nodiscard]] std::uint32_t longest() const { return m_longest; }
    [[nodiscard]] const Bytes& bytes() const { return m_sink.bytes(); }

private:
    ByteSink m_sink;
    std::uint32_t m_longest = 0;
};

void addWmfArea(WmfRecords& records, const Poster::Area& area)
{
    const std::uint32_t colour = colourNumber(area.colour);
    records.add(kWmfBrush, {0, colour & 0xFFFFU, colour >> 16U, 0});
    records.add(kWmfSelect, {1});
    std::vector<unsigned> words{static_cast<unsigned>(area.outline.size())};
    for (const QPoint& point : area.outline) {
        words.push_back(coordinate(point.x()));
        words.push_back(coordinate(point.y()));
    }
    records.add(kWmfPolygon, words);
    records.add(kWmfDelete, {1});
}

// The head that old metafiles lack by themselves; its last word makes all of them cancel out.
void appendPlaceableHead(ByteSink& sink, const Poster& poster)
{
    const std::array<unsigned, 10> words{0xCDD7,
                                         0x9AC6,
                                         0,
                                         0,
                                         0,
                                         coordinate(poster.width() * Poster::kUnitsPerPixel),
                                         coordinate(poster.height() * Poster::kUnitsPerPixel),
                                         kUnitsPerInch,
                                         0,
                                         0};
    unsigned check = 0;
    for (const unsigned word : words) {
        sink.little16(word);
        check ^= word;
    }
    sink.little16(check);
}

enum EmfType : std::uint32_t {
    kEmfHeader = 1,
    kEmfWindowExtent = 9,
    kEmfWindowOrigin = 10,
    kEmfViewportExtent = 11,
    kEmfViewportOrigin = 12,
    kEmfEnd = 14,
    kEmfMapMode = 17,
    kEmfSelect = 37,
    kEmfBrush = 39,
    kEmfDelete = 40,
    kEmfPolygon16 = 86
};

class EmfRecords {
public:
    void add(EmfType type, const ByteSink& content)
    {
        m_sink.little32(type);
        m_sink.little32(static_cast<std::uint32_t>(content.size() + 8));
        m_sink.append(content.bytes());
        ++m_count;
    }

    void add(EmfType type, std::initializer_list<std::uint32_t> numbers)
    {
        ByteSink content;
        for (const std::uint32_t number : numbers) {
            content.little32(number);
        }
        add(type, content);
    }

    [[nodiscard]] std::uint32_t count() const { return m_count; }
    [[nodiscard]] const Bytes& bytes() const { return m_sink.bytes(); }

private:
    ByteSink m_sink;
    std::uint32_t m_count = 0;
};

void addEmfArea(EmfRecords& records, const Poster::Area& area)
{
    records.add(kEmfBrush, {1, 0, colourNumber(area.colour), 0});
    records.add(kEmfSelect, {1});
    const QRect bounds = area.outline.boundingRect();
    ByteSink polygon;
    polygon.little32(unsignedOf(bounds.left()));
    polygon.little32(unsignedOf(bounds.top()));
    polygon.little32(unsignedOf(bounds.right()));
    polygon.little32(unsignedOf(bounds.bottom()));
    polygon.little32(static_cast<std::uint32_t>(area.outline.size()));
    for (const QPoint& point : area.outline) {
        polygon.little16(coordinate(point.x()));
        polygon.little16(coordinate(point.y()));
    }
    records.add(kEmfPolygon16, polygon);
    records.add(kEmfSelect, {0x80000000U}); // the stock brush, so that ours can go
    records.add(kEmfDelete, {1});
}

// Sizes are told in pixels and in hundredths of a millimetre; the device is a screen of 96 dots to
// the inch.
ByteSink emfHead(const Poster& poster, const EmfRecords& records)
{
    constexpr std::uint32_t kHeadBytes = 88;
    const auto hundredths = [](int pixels) { return unsignedOf(pixels * 2540 / 96); };
    ByteSink sink;
    sink.little32(kEmfHeader);
    sink.little32(kHeadBytes);
    sink.zeros(8);
    sink.little32(unsignedOf(poster.width() - 1));
    sink.little32(unsignedOf(poster.height() - 1));
    sink.zeros(8);
    sink.little32(hundredths(poster.width()));
    sink.little32(hundredths(poster.height()));
    sink.text(" EMF");
    sink.little32(0x10000);
    sink.little32(static_cast<std::uint32_t>(kHeadBytes + records.bytes().size()));
    sink.little32(records.count() + 1);
    sink.little16(2); // handles, with the one that is never used
    sink.zeros(14);   // no description, no palette
    sink.little32(1920);
    sink.little32(1080);
    sink.little32(508);
    sink.little32(286);
    return sink;
}

} // namespace

Bytes wmfFile(const Poster& poster)
{
    constexpr unsigned kNoPen = 5;
    constexpr unsigned kAlternate = 1;
    constexpr unsigned kHeadWords = 9;
    WmfRecords records;
    records.add(kWmfOrigin, {0, 0});
    records.add(kWmfExtent, {coordinate(poster.height() * Poster::kUnitsPerPixel),
                             coordinate(poster.width() * Poster::kUnitsPerPixel)});
    records.add(kWmfFillMode, {kAlternate});
    records.add(kWmfPen, {kNoPen, 0, 0, 0, 0});
    records.add(kWmfSelect, {0});
    for (const Poster::Area& area : poster.areas()) {
        addWmfArea(records, area);
    }
    records.add(kWmfEnd, {});
    ByteSink sink;
    appendPlaceableHead(sink, poster);
    sink.little16(1);
    sink.little16(kHeadWords);
    sink.little16(0x300);
    sink.little32(static_cast<std::uint32_t>(records.bytes().size() / 2 + kHeadWords));
    sink.little16(2); // pen and brush
    sink.little32(records.longest());
    sink.little16(0);
    sink.append(records.bytes());
    return sink.bytes();
}

Bytes emfFile(const Poster& poster)
{
    constexpr std::uint32_t kAnisotropic = 8;
    constexpr std::uint32_t kNoPen = 0x80000008;
    const auto unitsOf = [](int pixels) { return unsignedOf(pixels * Poster::kUnitsPerPixel); };
    EmfRecords records;
    records.add(kEmfMapMode, {kAnisotropic});
    records.add(kEmfWindowOrigin, {0, 0});
    records.add(kEmfWindowExtent, {unitsOf(poster.width()), unitsOf(poster.height())});
    records.add(kEmfViewportOrigin, {0, 0});
    records.add(kEmfViewportExtent, {unsignedOf(poster.width()), unsignedOf(poster.height())});
    records.add(kEmfSelect, {kNoPen});
    for (const Poster::Area& area : poster.areas()) {
        addEmfArea(records, area);
    }
    records.add(kEmfEnd, {0, 0, 20});
    ByteSink sink;
    sink.append(emfHead(poster, records).bytes());
    sink.append(records.bytes());
    return sink.bytes();
}

} // namespace tools
