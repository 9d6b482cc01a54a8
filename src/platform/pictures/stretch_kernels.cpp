#include "platform/pictures/stretch_kernels.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace platform {

namespace {

using Channels [[gnu::vector_size(16)]] = float;

const quint32* pixelsOf(const QImage& image, int row)
{
    return reinterpret_cast<const quint32*>(image.constScanLine(row));
}

quint32* pixelsOf(QImage& image, int row)
{
    return reinterpret_cast<quint32*>(image.scanLine(row));
}

enum class Order { Forward, Backward, Mixed };

// Whether the columns are neighbours, so that a row can be copied in one piece.
Order orderOf(const StretchAxis& columns)
{
    bool forward = true;
    bool backward = true;
    for (std::size_t i = 1; i < columns.spans.size(); ++i) {
        const int step = columns.spans[i].first - columns.spans[i - 1].first;
        forward = forward && step == 1;
        backward = backward && step == -1;
    }
    if (forward) {
        return Order::Forward;
    }
    return backward ? Order::Backward : Order::Mixed;
}

void copyRow(quint32* target, const quint32* source, const std::vector<StretchSpan>& spans,
             Order order)
{
    const std::size_t count = spans.size();
    switch (order) {
    case Order::Forward:
        std::memcpy(target, source + spans.front().first, count * sizeof(quint32));
        return;
    case Order::Backward:
        std::reverse_copy(source + spans.back().first, source + spans.front().first + 1, target);
        return;
    case Order::Mixed:
        for (std::size_t i = 0; i < count; ++i) {
            target[i] = source[spans[i].first];
        }
        return;
    }
}

// Weighted sums of rows, one number a channel, for the source columns that the target needs.
class RowSum {
public:
    RowSum(const QImage& source, int firstColumn, int columnCount)
        : m_source(source)
        , m_offset(std::size_t(firstColumn) * 4)
        , m_size(std::size_t(columnCount) * 4)
        , m_sum(m_size + kSpareColumns * 4)
    {
    }

    // Columns of zeros behind the last one, so that a reader may take a fixed number of them.
    static constexpr std::size_t kSpareColumns = 3;

    void compute(const StretchSpan& rows);
    // Four channels a column, from the first needed column on.
    [[nodiscard]] const float* sums() const { return m_sum.data(); }

private:
    // Rows that are added in one go, so that the memory's speed is the limit and not the way of the
    // sums to and fro.
    static constexpr int kRowsAtOnce = 8;
    // What rows are added to: nothing, the first and last row by their weights, or the sum.
    enum class From { Nothing, Ends, SumSoFar };

    [[nodiscard]] const uchar* row(int y) const { return m_source.constScanLine(y) + m_offset; }
    template<int kRows, From kFrom> void addWholeRows(const StretchSpan& rows, int first);
    template<From kFrom> void addUpTo(const StretchSpan& rows, int first, int count);

    const QImage& m_source;
    std::size_t m_offset;
    std::size_t m_size;
    std::vector<float> m_sum;
};

// Adds rows that count whole.
template<int kRows, RowSum::From kFrom>
void RowSum::addWholeRows(const StretchSpan& rows, int first)
{
    std::array<const uchar*, std::size_t(kRows) + 1> whole{};
    for (int i = 0; i < kRows; ++i) {
        whole[std::size_t(i)] = row(first + i);
    }
    const uchar* head = row(rows.first);
    const uchar* tail = row(rows.last());
    const float headWeight = rows.head * rows.scale;
    const float tailWeight = rows.tail * rows.scale;
    const float weight = rows.scale;
    float* __restrict sums = m_sum.data();
    const std::size_t size = m_size;
    for (std::size_t i = 0; i < size; ++i) {
        // Wide enough for so few bytes, and half the work of a wider one.
        std::uint16_t sum = 0;
        for (int k = 0; k < kRows; ++k) {
            sum = std::uint16_t(sum + whole[std::size_t(k)][i]);
        }
        float before = 0;
        if (kFrom == From::SumSoFar) {
            before = sums[i];
        } else if (kFrom == From::Ends) {
            before = float(head[i]) * headWeight + float(tail[i]) * tailWeight;
        }
        sums[i] = before + float(sum) * weight;
    }
}

template<RowSum::From kFrom> void RowSum::addUpTo(const StretchSpan& rows, int first, int count)
{
    using Adder = void (RowSum::*)(const StretchSpan&, int);
    static constexpr auto kAdders = []<std::size_t... kRows>(std::index_sequence<kRows...>)
    {
        return std::array<Adder, sizeof...(kRows)>{&RowSum::addWholeRows<int(kRows), kFrom>...};
    }
    (std::make_index_sequence<kRowsAtOnce + 1>());
    (this->*kAdders[std::size_t(count)])(rows, first);
}

void RowSum::compute(const StretchSpan& rows)
{
    if (rows.count == 1) {
        std::copy_n(row(rows.first), m_size, m_sum.begin());
        return;
    }
    // Where the scale is a whole number, so are all rows.
    const bool wholeEnds = rows.head == 1.0F && rows.tail == 1.0F;
    int y = wholeEnds ? rows.first : rows.first + 1;
    const int end = wholeEnds ? rows.first + rows.count : rows.last();
    const int atFirst = std::min(kRowsAtOnce, end - y);
    if (wholeEnds) {
        addUpTo<From::Nothing>(rows, y, atFirst);
    } else {
        addUpTo<From::Ends>(rows, y, atFirst);
    }
    y += atFirst;
    while (y < end) {
        const int count = std::min(kRowsAtOnce, end - y);
        addUpTo<From::SumSoFar>(rows, y, count);
        y += count;
    }
}

Channels channelsAt(const float* sums, int column)
{
    Channels channels;
    std::memcpy(&channels, sums + std::size_t(column) * 4, sizeof channels);
    return channels;
}

// Sums columns into pixels. Where a span has few of them, all spans are read as if they had the
// most, because a fixed number of products costs less than a loop that ends differently every time.
class ColumnSum {
public:
    ColumnSum(const std::vector<StretchSpan>& spans, int firstColumn);

    // Writes a row of pixels.
    void compute(quint32* target, const float* sums);

private:
    static constexpr int kFew = RowSum::kSpareColumns + 1;
    using FewWeights = std::array<float, std::size_t(kFew)>;

    void computeFew(const float* sums);
    void computeMany(const float* sums);
    void put(std::size_t pixel, Channels channels)
    {
        std::memcpy(m_result.data() + pixel * 4, &channels, sizeof channels);
    }

    const std::vector<StretchSpan>& m_spans;
    int m_firstColumn;
    std::vector<FewWeights> m_weights; // empty unless all spans have few columns
    std::vector<float> m_result;
};

ColumnSum::ColumnSum(const std::vector<StretchSpan>& spans, int firstColumn)
    : m_spans(spans)
    , m_firstColumn(firstColumn)
    , m_result(spans.size() * 4)
{
    if (std::any_of(spans.begin(), spans.end(), [](const auto& s) { return s.count > kFew; })) {
        return;
    }
    m_weights.reserve(spans.size());
    for (const StretchSpan& span : spans) {
        FewWeights weights{};
        std::fill_n(weights.begin(), span.count, span.scale);
        weights[std::size_t(span.count - 1)] = span.tail * span.scale;
        weights[0] = span.head * span.scale;
        m_weights.push_back(weights);
    }
}

void ColumnSum::compute(quint32* target, const float* sums)
{
    if (m_weights.empty()) {
        computeMany(sums);
    } else {
        computeFew(sums);
    }
    uchar* bytes = reinterpret_cast<uchar*>(target);
    for (std::size_t i = 0; i < m_result.size(); ++i) {
        bytes[i] = uchar(int(m_result[i] + 0.5F));
    }
}

void ColumnSum::computeFew(const float* sums)
{
    for (std::size_t i = 0; i < m_spans.size(); ++i) {
        const float* from = sums + std::size_t(m_spans[i].first - m_firstColumn) * 4;
        const FewWeights& weights = m_weights[i];
        Channels sum = channelsAt(from, 0) * weights[0];
        for (int column = 1; column < kFew; ++column) {
            sum += channelsAt(from, column) * weights[std::size_t(column)];
        }
        put(i, sum);
    }
}

void ColumnSum::computeMany(const float* sums)
{
    for (std::size_t i = 0; i < m_spans.size(); ++i) {
        const StretchSpan& span = m_spans[i];
        const float* from = sums + std::size_t(span.first - m_firstColumn) * 4;
        Channels sum = channelsAt(from, 0) * span.head;
        for (int column = 1; column < span.count - 1; ++column) {
            sum += channelsAt(from, column);
        }
        if (span.count > 1) {
            sum += channelsAt(from, span.count - 1) * span.tail;
        }
        put(i, sum * span.scale);
    }
}

} // namespace

void copyPixels(QImage& target, const StretchAxis& columns, const QImage& source,
                const StretchAxis& rows)
{
    const Order order = orderOf(columns);
    const std::size_t bytes = columns.spans.size() * sizeof(quint32);
    const quint32* before = nullptr;
    int beforeFrom = -1;
    int y = rows.targetFirst;
    for (const StretchSpan& row : rows.spans) {
        quint32* onto = pixelsOf(target, y++) + columns.targetFirst;
        if (before != nullptr && row.first == beforeFrom) {
            std::memcpy(onto, before, bytes);
        } else {
            copyRow(onto, pixelsOf(source, row.first), columns.spans, order);
        }
        before = onto;
        beforeFrom = row.first;
    }
}

void blendPixels(QImage& target, const StretchAxis& columns, const QImage& source,
                 const StretchAxis& rows)
{
    const auto& spans = columns.spans;
    // Mirrored columns run backwards, so the outermost ones stand at either end.
    const int firstColumn = std::min(spans.front().first, spans.back().first);
    const int lastColumn = std::max(spans.front().last(), spans.back().last());
    RowSum rowSum(source, firstColumn, lastColumn - firstColumn + 1);
    ColumnSum columnSum(spans, firstColumn);
    int y = rows.targetFirst;
    for (const StretchSpan& row : rows.spans) {
        rowSum.compute(row);
        columnSum.compute(pixelsOf(target, y++) + columns.targetFirst, rowSum.sums());
    }
}

} // namespace platform
