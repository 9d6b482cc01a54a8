#include "files/size_text.h"

#include "base/numbers.h"

namespace files {

namespace {

constexpr qint64 kLargestInBytes = 1024;
constexpr double kUnitStep = 1024;
constexpr qsizetype kFractionLength = 3; // the point and two digits

} // namespace

QString sizeText(qint64 bytes)
{
    if (bytes <= kLargestInBytes) {
        return QString::number(bytes) + QStringLiteral(" Bytes");
    }
    double size = static_cast<double>(bytes) / kUnitStep;
    QString unit = QStringLiteral(" Kb");
    if (size >= kUnitStep) {
        size /= kUnitStep;
        unit = QStringLiteral(" Mb");
    }
    QString number = QString::fromStdString(base::decimalText(size));
    const qsizetype point = number.indexOf(QLatin1Char('.'));
    if (point >= 0) {
        number.truncate(point + kFractionLength);
    }
    return number + unit;
}

} // namespace files
