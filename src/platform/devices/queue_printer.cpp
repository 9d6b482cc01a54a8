#include "platform/devices/queue_printer.h"

#include <QTemporaryFile>

namespace platform {

namespace {

constexpr double kUsualRim = 4.2; // millimetres
constexpr PaperTraits kUsualTraits{{kUsualRim, kUsualRim, kUsualRim, kUsualRim}, 300};

// A file that is the sender's once it is delivered.
class SpoolTarget : public PrintTarget {
public:
    SpoolTarget(PrintSender& sender, PrintJob job)
        : m_sender(sender)
        , m_job(std::move(job))
    {
    }

    [[nodiscard]] bool open() { return m_spool.open(); }
    [[nodiscard]] QFileDevice& file() override { return m_spool; }
    [[nodiscard]] std::optional<PrintFailure> deliver(int copies) override
    {
        m_spool.setAutoRemove(false);
        m_job.file = m_spool.fileName();
        m_job.copies = copies;
        return m_sender.send(m_job) ? std::nullopt : std::optional(PrintFailure::Gone);
    }

private:
    PrintSender& m_sender;
    PrintJob m_job;
    QTemporaryFile m_spool;
};

} // namespace

QueuePrinter::QueuePrinter(const QString& name, const PrinterContact& contact,
                           std::shared_ptr<PrintQueues> queues, PrintSender& sender)
    : DocumentPrinter(name, contact)
    , m_queues(std::move(queues))
    , m_sender(sender)
{
}

// A printer that says nothing now may answer later, so only what it says is kept.
PaperTraits QueuePrinter::traitsOf(QSizeF upright)
{
    const std::pair size(upright.width(), upright.height());
    const auto known = m_traits.find(size);
    if (known != m_traits.end()) {
        return known->second;
    }
    auto traits = m_queues->traits(name(), upright);
    if (!traits) {
        return kUsualTraits;
    }
    if (!isSensibleQuality(traits->dotsPerInch)) {
        traits->dotsPerInch = kUsualTraits.dotsPerInch;
    }
    return m_traits.emplace(size, *traits).first->second;
}

std::unique_ptr<PrintTarget> QueuePrinter::openTarget(const QString& title)
{
    auto target = std::make_unique<SpoolTarget>(
        m_sender, PrintJob{name(), title, {}, uprightMillimetres(setting()), 0, contact().failed});
    if (!target->open()) {
        fail(PrintFailure::NotSaved);
        return nullptr;
    }
    return target;
}

} // namespace platform
