#pragma once

#include <QMimeData>
#include <functional>

namespace files {

// The classic number of a data format: 1 text, 2 picture, 15 files; 0 for all others.
[[nodiscard]] qint16 formatNumber(const QString& mimeType);

// What is dragged. A format that was announced without its data gets it when somebody asks for it.
class DragData : public QMimeData {
public:
    using Fill = std::function<void(DragData& data, qint16 format)>;

    explicit DragData(Fill fill);

protected:
    [[nodiscard]] QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    Fill m_fill;
};

} // namespace files
