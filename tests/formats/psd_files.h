#pragma once

#include "formats/file_bytes.h"

struct PsdFields {
    int version = 1;
    int channels = 3;
    std::int64_t rows = 0;
    std::int64_t columns = 0;
    int depth = 8;
    int mode = 3;
    int compression = 0;

    // Bytes of each of the three sections that are passed over.
    std::size_t sectionBytes = 0;
};

inline FileBytes psdHeader(const PsdFields& fields)
{
    FileBytes file;
    file.text("8BPS").big16(fields.version).fill(6, 0x77);
    file.big16(fields.channels).big32(fields.rows).big32(fields.columns);
    file.big16(fields.depth).big16(fields.mode);
    for (int section = 0; section < 3; ++section) {
        file.big32(static_cast<std::int64_t>(fields.sectionBytes)).fill(fields.sectionBytes, 0xAB);
    }
    return file.big16(fields.compression);
}

inline PsdFields psdFields(int channels, int columns, int rows, int compression)
{
    PsdFields fields;
    fields.channels = channels;
    fields.columns = columns;
    fields.rows = rows;
    fields.compression = compression;
    return fields;
}

// The table of line lengths that stands before packed planes. Nobody looks at the lengths.
inline FileBytes psdLengths(int channels, int rows)
{
    return FileBytes().fill(static_cast<std::size_t>(channels) * static_cast<std::size_t>(rows) * 2,
                            0xEE);
}
