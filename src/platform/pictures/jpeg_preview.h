#pragma once

#include "platform/pictures/jpeg_converter.h"

#include <QString>
#include <chrono>
#include <functional>
#include <optional>

namespace platform {

// Keeps a JPEG file at the latest quality that was asked for. A conversion lets events run between
// short pieces of work; a request that comes in meanwhile takes its place, so that the file of an
// overtaken quality is never finished first.
class JpegPreview {
public:
    // How long a conversion works before it lets events run.
    using Piece = std::chrono::milliseconds;
    static constexpr Piece kShortPiece{8}; // a slider follows the pointer

    JpegPreview(const QString& sourceBmpPath, const QString& targetJpgPath,
                Piece piece = kShortPiece);

    enum class Outcome {
        Converted,
        Failed,
        Overtaken, // a request that runs already has taken the new quality over
        Stopped,   // given up; the file is what it was
    };

    // False ends the conversion. Without one nothing runs meanwhile.
    using LetEventsRun = std::function<bool()>;

    // Comes back when the file has the latest quality, whoever asked for it. The preview must live
    // until then.
    Outcome request(int quality, const LetEventsRun& letEventsRun);

    // From inside an event of a running request: completes it at once.
    void finishNow();
    // From inside an event of a running request: lets it end without a file.
    void stop() { m_stopped = true; }

    // Conversions so far, and those of them that wrote the file.
    [[nodiscard]] int started() const { return m_started; }
    [[nodiscard]] int written() const { return m_written; }

private:
    std::optional<Outcome> convert(const LetEventsRun& letEventsRun);
    Outcome outcomeOf(JpegConversion::Progress progress);

    BitmapSource m_source;
    QString m_target;
    Piece m_piece;
    int m_quality = 0;
    int m_started = 0;
    int m_written = 0;
    int m_requests = 0;
    bool m_running = false;
    bool m_stopped = false;
    std::optional<Outcome> m_finished;
};

} // namespace platform
