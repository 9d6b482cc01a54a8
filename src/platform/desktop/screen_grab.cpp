#include "platform/desktop/screen_grab.h"

#include "platform/desktop/screenshot_portal.h"
#include "platform/desktop/window_manager.h"
#include "platform/desktop/x11_server.h"

#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace platform {

namespace {

QList<ScreenFacts> allScreens()
{
    QList<ScreenFacts> facts;
    for (const QScreen* screen : QGuiApplication::screens()) {
        facts.append({screen->geometry(), screen->devicePixelRatio()});
    }
    return facts;
}

// An X server inside of a Wayland desktop sees nothing but its own windows.
class DesktopGrab : public ScreenGrab {
public:
    void take(QObject& owner, Done done) override
    {
        if (isOnWayland() || isX11InsideWayland()) {
            askPortal(owner, std::move(done));
        } else {
            const QImage root = x11RootPicture();
            done(root.isNull() ? std::nullopt : frozenByPixels(root, allScreens()));
        }
    }

private:
    static void askPortal(QObject& owner, Done done)
    {
        auto* const portal = new ScreenshotPortal(&owner);
        portal->ask([done = std::move(done)](const QImage& picture) {
            done(picture.isNull() ? std::nullopt : frozenInOneScale(picture, allScreens()));
        });
    }
};

ScreenGrab*& current()
{
    static DesktopGrab real;
    static ScreenGrab* instance = &real;
    return instance;
}

} // namespace

ScreenGrab& screenGrab()
{
    return *current();
}

ScopedScreenGrab::ScopedScreenGrab(ScreenGrab& replacement)
    : m_previous(current())
{
    current() = &replacement;
}

ScopedScreenGrab::~ScopedScreenGrab()
{
    current() = m_previous;
}

} // namespace platform
