#include "platform/desktop/vanishing.h"

#include "platform/desktop/window_manager.h"
#include "platform/desktop/x11_server.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <chrono>
#include <utility>

namespace platform {

namespace {

using namespace std::chrono_literals;

constexpr auto kLook = 5ms;
constexpr qint64 kPatience = 1000; // milliseconds
// Others paint what was covered as soon as the server tells them; a compositor shows the window
// leave.
constexpr auto kRepaint = 150ms;
constexpr auto kAnimation = 450ms;

bool isOnScreen(const QWidget* window)
{
    if (window == nullptr || !window->isVisible()) {
        return false;
    }
    const QWindow* handle = window->windowHandle();
    // Only an X server tells of it.
    return x11Server() != nullptr && handle != nullptr && handle->isExposed();
}

std::chrono::milliseconds settlingTime()
{
    if (x11Server() != nullptr) {
        return isX11Composited() ? kAnimation : kRepaint;
    }
    return isOnWayland() ? kAnimation : 0ms;
}

class Vanishing : public QObject {
public:
    Vanishing(QWidget& window, QObject& owner, std::function<void(bool)> then)
        : QObject(&owner)
        , m_window(&window)
        , m_then(std::move(then))
    {
        m_since.start();
        connect(&m_clock, &QTimer::timeout, this, &Vanishing::look);
        m_clock.start(kLook);
    }

private:
    void look()
    {
        const bool there = isOnScreen(m_window);
        if (there && m_since.elapsed() < kPatience) {
            return;
        }
        m_clock.stop();
        QTimer::singleShot(there ? 0ms : settlingTime(), this, [this, there] {
            deleteLater();
            m_then(!there);
        });
    }

    QPointer<QWidget> m_window;
    std::function<void(bool)> m_then;
    QElapsedTimer m_since;
    QTimer m_clock;
};

} // namespace

void whenVanished(QWidget& window, QObject& owner, std::function<void(bool)> then)
{
    new Vanishing(window, owner, std::move(then)); // its owner's
}

} // namespace platform
