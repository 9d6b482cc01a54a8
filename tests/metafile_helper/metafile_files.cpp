#include "metafile_helper/metafile_files.h"

namespace test {

namespace {

void put16(QByteArray& bytes, qint64 value)
{
    bytes.append(char(value & 255));
    bytes.append(char(value >> 8 & 255));
}

void put32(QByteArray& bytes, qint64 value)
{
    put16(bytes, value & 0xFFFF);
    put16(bytes, value >> 16 & 0xFFFF);
}

qint64 colourOf(int red, int green, int blue)
{
    return red | qint64(green) << 8 | qint64(blue) << 16;
}

} // namespace

WmfFile::WmfFile(QRect bounds, int unitsAnInch)
    : m_bounds(bounds)
    , m_unitsAnInch(unitsAnInch)
{
    add(0x0103, {8});                                       // units of the drawing's own
    add(0x020B, {bounds.top(), bounds.left()});             // window origin
    add(0x020C, {bounds.height() - 1, bounds.width() - 1}); // window extent
}

void WmfFile::add(unsigned function, std::initializer_list<int> parameters)
{
    put32(m_records, qint64(parameters.size()) + 3);
    put16(m_records, function);
    for (const int parameter : parameters) {
        put16(m_records, parameter);
    }
}

void WmfFile::paintWith(int red, int green, int blue)
{
    const qint64 colour = colourOf(red, green, blue);
    add(0x02FC, {0, int(colour & 0xFFFF), int(colour >> 16), 0}); // solid brush
    add(0x012D, {m_objects++});
    add(0x02FA, {5, 0, 0, 0, 0}); // pen that draws nothing
    add(0x012D, {m_objects++});
}

void WmfFile::rectangle(int left, int top, int right, int bottom)
{
    add(0x041B, {bottom, right, top, left});
}

void WmfFile::ellipse(int left, int top, int right, int bottom)
{
    add(0x0418, {bottom, right, top, left});
}

void WmfFile::triangle(QPoint a, QPoint b, QPoint c)
{
    add(0x0324, {3, a.x(), a.y(), b.x(), b.y(), c.x(), c.y()});
}

void WmfFile::text(QPoint at, const QByteArray& words)
{
    const QByteArray padded = words.size() % 2 == 0 ? words : words + ' ';
    put32(m_records, 3 + 1 + padded.size() / 2 + 2);
    put16(m_records, 0x0521);
    put16(m_records, words.size());
    m_records.append(padded);
    put16(m_records, at.y());
    put16(m_records, at.x());
}

QByteArray WmfFile::bytes(bool placeable) const
{
    QByteArray head;
    if (placeable) {
        put32(head, 0x9AC6CDD7);
        put16(head, 0);
        put16(head, m_bounds.left());
        put16(head, m_bounds.top());
        put16(head, m_bounds.right());
        put16(head, m_bounds.bottom());
        put16(head, m_unitsAnInch);
        put32(head, 0);
        unsigned sum = 0;
        for (qsizetype i = 0; i < head.size(); i += 2) {
            sum ^= unsigned(uchar(head[i])) | unsigned(uchar(head[i + 1])) << 8U;
        }
        put16(head, sum);
    }
    QByteArray records = m_records;
    put32(records, 3); // the end
    put16(records, 0);
    put16(head, 1);
    put16(head, 9);
    put16(head, 0x0300);
    put32(head, 9 + records.size() / 2);
    put16(head, m_objects);
    put32(head, 64); // words of the longest record, or more
    put16(head, 0);
    return head + records;
}

EmfFile::EmfFile(QSize size)
    : m_size(size)
{
}

void EmfFile::add(unsigned type, std::initializer_list<qint64> parameters)
{
    put32(m_records, type);
    put32(m_records, 8 + qint64(parameters.size()) * 4);
    for (const qint64 parameter : parameters) {
        put32(m_records, parameter);
    }
    ++m_count;
}

void EmfFile::paintWith(int red, int green, int blue)
{
    ++m_objects;
    add(39, {m_objects, 0, colourOf(red, green, blue), 0}); // solid brush
    add(37, {m_objects});
    add(37, {0x80000008}); // the stock pen that draws nothing
}

void EmfFile::rectangle(int left, int top, int right, int bottom)
{
    add(43, {left, top, right, bottom});
}

void EmfFile::ellipse(int left, int top, int right, int bottom)
{
    add(42, {left, top, right, bottom});
}

QByteArray EmfFile::bytes() const
{
    QByteArray records = m_records;
    for (const qint64 value : {14, 20, 0, 16, 20}) { // the end
        put32(records, value);
    }
    constexpr qint64 kHeadBytes = 108;
    const auto hundredths = [](int pixels) { return qint64(pixels) * 2540 / 96; };
    QByteArray head;
    put32(head, 1);
    put32(head, kHeadBytes);
    for (const qint64 value :
         {qint64(0), qint64(0), qint64(m_size.width() - 1), qint64(m_size.height() - 1), qint64(0),
          qint64(0), hundredths(m_size.width()), hundredths(m_size.height())}) {
        put32(head, value);
    }
    head.append(" EMF");
    put32(head, 0x10000);
    put32(head, kHeadBytes + records.size());
    put32(head, m_count + 1);
    put16(head, m_objects + 1);
    put16(head, 0);
    for (const qint64 value : {0, 0, 0, 960, 960, 254, 254, 0, 0, 0, 254000, 254000}) {
        put32(head, value);
    }
    return head + records;
}

} // namespace test
