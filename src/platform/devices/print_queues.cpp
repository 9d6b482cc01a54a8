#include "platform/devices/print_queues.h"

#include "platform/os/helper_process.h"
#include "platform/os/paths.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr std::chrono::seconds kPatience(2);
constexpr std::chrono::seconds kSilence(30);
constexpr std::chrono::seconds kListAge(5); // one window asks several times as it opens
constexpr qint64 kMostOutput = qint64(1) << 20;
constexpr double kHundredths = 100;

const QString kService; // in place of a queue's name

std::vector<PrinterFacts> readList(const QByteArray& answer)
{
    const QByteArrayList texts = answer.split('\0');
    std::vector<PrinterFacts> queues;
    for (qsizetype index = 0; index + 1 < texts.size(); index += 2) {
        queues.push_back({QString::fromUtf8(texts[index]), texts[index + 1] == "1"});
    }
    return queues;
}

std::optional<PaperTraits> readTraits(const QByteArray& answer)
{
    constexpr qsizetype kNumbers = 5;
    const QByteArrayList texts = answer.split(' ');
    if (texts.size() != kNumbers) {
        return std::nullopt;
    }
    std::array<int, kNumbers> numbers{};
    std::transform(texts.begin(), texts.end(), numbers.begin(),
                   [](const QByteArray& text) { return std::max(text.toInt(), 0); });
    return PaperTraits{{numbers[0] / kHundredths, numbers[1] / kHundredths,
                        numbers[2] / kHundredths, numbers[3] / kHundredths},
                       numbers[4]};
}

} // namespace

QString printHelper()
{
    return joinPath(programFolder(), QStringLiteral("vistara-print"));
}

bool PrintQueues::isSilent(const QString& queue) const
{
    const auto found = m_silences.find(queue);
    return found != m_silences.end() && !found->second.hasExpired();
}

std::optional<QByteArray> PrintQueues::ask(const QString& queue, const QStringList& request)
{
    if (isSilent(queue) || isSilent(kService)) {
        return std::nullopt;
    }
    const HelperAnswer answer = helperAnswer({.program = m_helper,
                                              .mostOutput = kMostOutput,
                                              .patience = kPatience,
                                              .arguments = request});
    if (answer.end == HelperEnd::TooLong) {
        m_silences[queue].setRemainingTime(kSilence);
    }
    return answer.end == HelperEnd::Answered ? std::optional(answer.output) : std::nullopt;
}

std::vector<PrinterFacts> PrintQueues::list()
{
    if (m_listAge.hasExpired()) {
        if (const auto answer = ask(kService, {QStringLiteral("list")})) {
            m_list = readList(*answer);
        }
        m_listAge.setRemainingTime(kListAge);
    }
    return m_list;
}

std::optional<PaperTraits> PrintQueues::traits(const QString& queue, QSizeF millimetres)
{
    const auto hundredths = [](double side) { return QString::number(qRound(side * kHundredths)); };
    const auto answer = ask(queue, {QStringLiteral("paper"), queue, hundredths(millimetres.width()),
                                    hundredths(millimetres.height())});
    return answer ? readTraits(*answer) : std::nullopt;
}

} // namespace platform
