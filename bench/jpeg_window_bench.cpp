// Moves the slider of the JPEG window over a picture and tells how fluid that is:
//
//     jpeg_window_bench PICTURE
//
// A new quality comes every 16 milliseconds, as from a hand that drags. Prints the longest time for
// which the window took no event, beside the time of one whole conversion.

#include "core/working_files.h"
#include "editing/jpeg_window.h"
#include "platform/os/paths.h"
#include "platform/pictures/jpeg_converter.h"
#include "platform/pictures/picture_loader.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSlider>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kMoves = 120;
constexpr int kMillisecondsBetween = 16;
constexpr double kNanoseconds = 1e6; // in a millisecond

double wholeConversion(const QString& source, const QString& target)
{
    double milliseconds = 0;
    for (int run = 0; run < 2; ++run) { // the first one warms the caches up
        QElapsedTimer time;
        time.start();
        if (BMPToJPG(source, target, 80) != 0) {
            std::exit(1);
        }
        milliseconds = double(time.nsecsElapsed()) / kNanoseconds;
    }
    return milliseconds;
}

// A hand that drags the slider to and fro. The next move is on its way before this one is handled,
// so that it may come while a conversion lets events run.
class Hand {
public:
    explicit Hand(QSlider& slider)
        : m_slider(slider)
    {
    }

    void move()
    {
        if (++m_moves < kMoves) {
            QTimer::singleShot(kMillisecondsBetween, Qt::PreciseTimer, &m_slider,
                               [this] { move(); });
        }
        m_slider.setValue(20 + std::abs(m_moves * 3 % 140 - 70));
    }

    [[nodiscard]] bool isDone() const { return m_moves == kMoves; }

private:
    QSlider& m_slider;
    int m_moves = 0;
};

// The longest time between two chances that events get, in milliseconds.
double longestGap(QSlider& slider)
{
    QElapsedTimer sinceEvent;
    qint64 longest = 0;
    QTimer chance;
    QObject::connect(&chance, &QTimer::timeout, [&] {
        longest = std::max(longest, sinceEvent.nsecsElapsed());
        sinceEvent.start();
    });
    Hand hand(slider);
    sinceEvent.start();
    chance.start(0);
    hand.move();
    while (!hand.isDone()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return double(longest) / kNanoseconds;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fputs("jpeg_window_bench PICTURE\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("VISTARA_HOME", home.path().toLocal8Bit());
    const QApplication application(count, arguments);
    platform::initialisePaths();
    const auto picture = platform::loadPicture(QString::fromLocal8Bit(arguments[1]));
    if (!picture || !core::saveAs(core::WorkingFile::Save, *picture)) {
        std::fputs("The picture can't be read.\n", stderr);
        return 1;
    }
    const double whole = wholeConversion(core::workingFile(core::WorkingFile::Save),
                                         home.filePath(QStringLiteral("whole.jpg")));
    auto window = std::make_unique<frmSaveJPGc>();
    window->show();
    const double gap = longestGap(*window->findChild<QSlider*>(QStringLiteral("Slider1")));
    std::printf("one conversion %.1f ms, longest gap %.1f ms, ratio %.2f\n", whole, gap,
                gap / whole);
    return 0;
}
