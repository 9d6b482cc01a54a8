#include "files/explorer/drag_data.h"

#include <array>
#include <utility>

namespace files {

namespace {

struct FormatRow {
    const char* mimeType;
    qint16 number;
};

constexpr std::array kFormats{
    FormatRow{"text/plain", 1},
    FormatRow{"application/x-qt-image", 2},
    FormatRow{"text/uri-list", 15},
};

bool isPromise(const QVariant& data)
{
    switch (data.typeId()) {
    case QMetaType::QByteArray:
        return data.toByteArray().isEmpty();
    case QMetaType::QVariantList:
        return data.toList().isEmpty();
    default:
        return !data.isValid();
    }
}

} // namespace

qint16 formatNumber(const QString& mimeType)
{
    for (const FormatRow& row : kFormats) {
        if (mimeType == QLatin1String(row.mimeType)) {
            return row.number;
        }
    }
    return 0;
}

DragData::DragData(Fill fill)
    : m_fill(std::move(fill))
{
}

// Reading changes the data here alone: it is what was promised.
QVariant DragData::retrieveData(const QString& mimeType, QMetaType type) const
{
    const QVariant data = QMimeData::retrieveData(mimeType, type);
    if (!isPromise(data) || !hasFormat(mimeType)) {
        return data;
    }
    m_fill(const_cast<DragData&>(*this), formatNumber(mimeType));
    return QMimeData::retrieveData(mimeType, type);
}

} // namespace files
