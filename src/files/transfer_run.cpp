#include "files/transfer_run.h"

#include "core/progress_strip.h"
#include "core/services.h"
#include "platform/desktop/pump.h"
#include "platform/os/file_transfer.h"

namespace files {

namespace {

constexpr qint64 kLarge = qint64(4) << 20; // bytes; less is there before a strip can be seen
constexpr base::Colour kStripGround = 0xE0E0E0;
constexpr base::Colour kStripColour = 0xC0C0C0;

// The strip of the main window, which may go while the transfer runs.
class FillingStrip {
public:
    FillingStrip() = default;
    ~FillingStrip()
    {
        core::ProgressStrip* const strip = core::services().progress;
        if (m_isShown && strip != nullptr) {
            strip->showStrip(false);
        }
    }
    FillingStrip(const FillingStrip&) = delete;
    FillingStrip& operator=(const FillingStrip&) = delete;

    void fill(double fraction)
    {
        core::ProgressStrip* const strip = core::services().progress;
        if (strip == nullptr) {
            return;
        }
        if (!m_isShown) {
            strip->setBackground(kStripGround);
            strip->showStrip(true);
            m_isShown = true;
        }
        strip->fill(fraction, kStripColour);
    }

private:
    bool m_isShown = false;
};

} // namespace

bool runTransfer(TransferKind kind, const QString& from, const QString& to, const QObject& guard,
                 const std::function<bool()>& isWanted)
{
    FillingStrip strip;
    const auto tell = [&](qint64 done, qint64 total) {
        if (total < kLarge) {
            return true;
        }
        // What shares blocks with its source is done at once.
        if (done > 0 && done < total) {
            strip.fill(static_cast<double>(done) / static_cast<double>(total));
        }
        return platform::pump(&guard) && isWanted();
    };
    return kind == TransferKind::Move ? platform::moveTo(from, to, tell)
                                      : platform::copyTo(from, to, tell);
}

} // namespace files
