#include "widgets/pointer_shapes.h"

#include <QPixmap>
#include <array>

namespace widgets {

namespace {

constexpr std::array kShapes{
    Qt::ArrowCursor,     Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,
    Qt::ArrowCursor,     Qt::SizeAllCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor,
    Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::UpArrowCursor,   Qt::WaitCursor,
    Qt::ForbiddenCursor, Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor,
};

} // namespace

std::optional<QCursor> pointerShape(int number, const QImage& picture)
{
    if (number == kCustomPointer && !picture.isNull()) {
        return QCursor(QPixmap::fromImage(picture));
    }
    if (number > 0 && number < static_cast<int>(kShapes.size())) {
        return QCursor(kShapes[static_cast<std::size_t>(number)]);
    }
    return std::nullopt;
}

} // namespace widgets
