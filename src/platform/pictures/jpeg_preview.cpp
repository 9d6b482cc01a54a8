#include "platform/pictures/jpeg_preview.h"

namespace platform {

namespace {

using Progress = JpegConversion::Progress;

constexpr std::chrono::hours kWithoutPause{1};

} // namespace

JpegPreview::JpegPreview(const QString& sourceBmpPath, const QString& targetJpgPath, Piece piece)
    : m_source(sourceBmpPath)
    , m_target(targetJpgPath)
    , m_piece(piece)
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

// What comes of a conversion at its end.
JpegPreview::Outcome JpegPreview::outcomeOf(Progress progress)
{
    if (progress != Progress::Converted) {
        return Outcome::Failed;
    }
    ++m_written;
    return Outcome::Converted;
}

// Nothing when a newer request has come in.
std::optional<JpegPreview::Outcome> JpegPreview::convert(const LetEventsRun& letEventsRun)
{
    const int request = m_requests;
    ++m_started;
    JpegConversion conversion(m_source, m_target, m_quality);
    while (true) {
        const Progress progress = conversion.work(letEventsRun ? m_piece : kWithoutPause);
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
    ++m_started;
    JpegConversion conversion(m_source, m_target, m_quality);
    m_finished = outcomeOf(conversion.work(kWithoutPause));
}

} // namespace platform
