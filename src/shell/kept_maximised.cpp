#include "shell/kept_maximised.h"

#include "platform/desktop/desktop.h"

#include <QEvent>
#include <QScopeGuard>
#include <QWidget>
#include <QWindow>

namespace shell {

namespace {

// Each silence is twice as long as the one before, so that the last one takes half a minute.
constexpr int kRepetitions = 7;

bool isNormal(Qt::WindowStates states)
{
    return (states & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen)) == 0;
}

} // namespace

KeptMaximised::KeptMaximised(QWidget& window, int firstSilence)
    : m_window(window)
    , m_firstSilence(firstSilence)
{
    window.installEventFilter(this);
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, &KeptMaximised::askAfterSilence);
}

void KeptMaximised::keep()
{
    if (!isNormal(m_window.windowState()) || !m_window.isVisible() || m_asked || m_askSoon) {
        return;
    }
    m_asking = true;
    const auto done = qScopeGuard([this] { m_asking = false; });
    m_asked = true;
    m_asked = !platform::desktop().maximise(m_window);
    if (m_asked && m_repetitions > 0) {
        m_silence.start(m_firstSilence << (kRepetitions - m_repetitions));
    }
}

bool KeptMaximised::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::Show) {
        m_window.windowHandle()->installEventFilter(this);
    } else if (event->type() == QEvent::WindowStateChange) {
        if (watched != &m_window) {
            told();
        } else if (!m_asking) {
            stateChanged(event->spontaneous());
        }
    }
    return false;
}

void KeptMaximised::stateChanged(bool byDesktop)
{
    if (!byDesktop || !isNormal(m_window.windowState())) {
        m_asked = false;
    } else if (!m_asked && !m_askSoon) {
        // A compositor overlooks what is asked before the window has been painted in the new size,
        // which comes behind the state.
        m_askSoon = true;
        QTimer::singleShot(0, this, [this] {
            m_askSoon = false;
            keep();
        });
    }
}

// The widget seems maximised from the moment it asks for that; its window is told when it is.
void KeptMaximised::told()
{
    const QWindow* handle = m_window.windowHandle();
    if (handle != nullptr && !isNormal(handle->windowStates())) {
        m_asked = false;
        m_repetitions = kRepetitions;
    }
}

// An X server tells how a window stands, not how it stood: who presses the restore button fast
// enough takes back what the desktop has just given before the window heard of it. Then the window
// seems maximised though it isn't, or seems to be refused. A busy server may take its time over each
// press, so the silences grow.
void KeptMaximised::askAfterSilence()
{
    if (m_asked) {
        --m_repetitions;
        m_asked = false;
        m_window.setWindowState(m_window.windowState() & ~Qt::WindowMaximized);
        keep();
    }
}

} // namespace shell
