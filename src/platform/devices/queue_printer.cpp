#include "platform/devices/queue_printer.h"

namespace platform {

PaperTraits QueuePrinter::traitsOf(QSizeF /*upright*/)
{
    constexpr double kUsualRim = 4.2;
    constexpr int kUsualQuality = 300;
    return {{kUsualRim, kUsualRim, kUsualRim, kUsualRim}, kUsualQuality};
}

QFileDevice* QueuePrinter::openTarget(const QString& /*title*/)
{
    m_spool = std::make_unique<QTemporaryFile>();
    if (!m_spool->open()) {
        dropTarget();
        fail(PrintFailure::NotSaved);
        return nullptr;
    }
    return m_spool.get();
}

bool QueuePrinter::deliver(int /*copies*/)
{
    fail(PrintFailure::Gone);
    return false;
}

void QueuePrinter::dropTarget()
{
    m_spool.reset();
}

} // namespace platform
