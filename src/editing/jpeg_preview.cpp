#include "editing/jpeg_preview.h"

namespace editing {

namespace {

using Progress = platform::JpegConversion::Progress;

// Short enough for a slider to follow the pointer.
constexpr std::chrono::milliseconds kPiece{8};
constexpr std::chrono::hours kWithoutPause{1};

JpegPreview::Outcome outcomeOf(Progress progress)
{
    return progress == Progress::Converted ? JpegPreview::Outcome::Converted
                                           : JpegPreview::Outcome::Failed;
}

} // namespace

JpegPreview::JpegPreview(const QString& sourceBmpPath, const QString& targetJpgPath)
    : m_source(sourceBmpPath)
    , m_target(targetJpgPath)
{
}

JpegPreview::Outcome JpegPreview::request(int quality, const LetEventsRun& letEventsRun)
{
    m_quality = quality;
    ++m_requests;
    if (m_running) {
        return Outcome::Overtaken;
    }
    m_running = true;
    m_stopped = false;
    m_finished.reset();
    std::optional<Outcome> outcome;
    while (!outcome) {
        outcome = convert(letEventsRun);
    }
    m_running = false;
    return *outcome;
}

// Nothing when a newer request has come in.
std::optional<JpegPreview::Outcome> JpegPreview::convert(const LetEventsRun& letEventsRun)
{
    const int request = m_requests;
    platform::JpegConversion conversion(m_source, m_target, m_quality);
    while (true) {
        const Progress progress = conversion.work(letEventsRun ? kPiece : kWithoutPause);
        if (progress != Progress::Working) {
            return outcomeOf(progress);
        }
        if (letEventsRun && !letEventsRun()) {
            return Outcome::Stopped;
        }
        if (m_stopped) {
            return Outcome::Stopped;
        }
        if (m_finished) {
            return m_finished;
        }
        if (m_requests != request) {
            return std::nullopt;
        }
    }
}

void JpegPreview::finishNow()
{
    if (!m_running || m_finished) {
        return;
    }
    platform::JpegConversion conversion(m_source, m_target, m_quality);
    m_finished = outcomeOf(conversion.work(kWithoutPause));
}

} // namespace editing
