#include "platform/devices/print_queues.h"

#include "platform/os/helper_process.h"
#include "platform/os/paths.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr std::chrono::seconds kPatience(2);
constexpr std::chrono::seconds kSilence(30);
constexpr qint64 kMostOutput = qint64(1) << 20;
constexpr double kHundredths = 100;

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

std::optional<QByteArray> PrintQueues::ask(const QStringList& request)
{
    if (!m_silence.hasExpired()) {
        return std::nullopt;
    }
    const HelperAnswer answer = helperAnswer({.program = m_helper,
                                              .mostOutput = kMostOutput,
                                              .patience = kPatience,
                                              .arguments = request});
    if (answer.end == HelperEnd::TooLong) {
        m_silence.setRemainingTime(kSilence);
    }
    return answer.end == HelperEnd::Answered ? std::optional(answer.output) : std::nullopt;
}

std::vector<PrinterFacts> PrintQueues::list()
{
    const QByteArrayList texts = ask({QStringLiteral("list")}).value_or(QByteArray()).split('\0');
    std::vector<PrinterFacts> queues;
    for (qsizetype index = 0; index + 1 < texts.size(); index += 2) {
        queues.push_back({QString::fromUtf8(texts[index]), texts[index + 1] == "1"});
    }
    return queues;
}

std::optional<PaperTraits> PrintQueues::traits(const QString& queue, QSizeF millimetres)
{
    const auto hundredths = [](double side) { return QString::number(qRound(side * kHundredths)); };
    const auto answer = ask({QStringLiteral("paper"), queue, hundredths(millimetres.width()),
                             hundredths(millimetres.height())});
    return answer ? readTraits(*answer) : std::nullopt;
}

} // namespace platform
