#pragma once

#include <QByteArray>
#include <QRect>
#include <initializer_list>

// Metafiles made in memory, record by record.
namespace test {

// A Windows metafile with a placeable head.
class WmfFile {
public:
    // The corners of the drawing in its own units.
    WmfFile(QRect bounds, int unitsAnInch);

    // A record of a function number and its parameters, 16 bits each.
    void add(unsigned function, std::initializer_list<int> parameters);

    // Selects a solid brush (red, green, blue) and a pen that draws nothing.
    void paintWith(int red, int green, int blue);
    void rectangle(int left, int top, int right, int bottom);
    void ellipse(int left, int top, int right, int bottom);
    void triangle(QPoint a, QPoint b, QPoint c);
    void text(QPoint at, const QByteArray& words);

    // The whole file, with or without the placeable head.
    [[nodiscard]] QByteArray bytes(bool placeable = true) const;

private:
    QRect m_bounds;
    int m_unitsAnInch;
    QByteArray m_records;
    int m_objects = 0;
};

// An enhanced metafile whose units are pixels of a 96 dpi device.
class EmfFile {
public:
    explicit EmfFile(QSize size);

    // A record of a type and its 32-bit parameters.
    void add(unsigned type, std::initializer_list<qint64> parameters);

    void paintWith(int red, int green, int blue);
    void rectangle(int left, int top, int right, int bottom);
    void ellipse(int left, int top, int right, int bottom);

    [[nodiscard]] QByteArray bytes() const;

private:
    QSize m_size;
    QByteArray m_records;
    int m_count = 1;
    int m_objects = 0;
};

} // namespace test
