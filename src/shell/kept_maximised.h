#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace shell {

// Keeps a window out of the normal state, as far as the desktop goes along. It is asked once for
// each change to normal. One that refuses answers that the window is normal; if that were asked
// about again there would be no end of it.
class KeptMaximised : public QObject {
public:
    // The window outlives it. The first silence, in milliseconds, after which a desktop is asked
    // again that has said nothing.
    explicit KeptMaximised(QWidget& window, int firstSilence = 250);

    // Asks where the window is normal and hasn't been refused. Without a window manager it is
    // maximised on return.
    void keep();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void stateChanged(bool byDesktop);
    void told();
    void askAfterSilence();

    QWidget& m_window;
    const int m_firstSilence;
    QTimer m_silence;
    bool m_asking = false;
    bool m_asked = false; // and the window hasn't been in another state than normal since
    bool m_askSoon = false;
    int m_repetitions = 0; // left for a desktop that stays silent
};

} // namespace shell
