#include "platform/desktop/qt_tray.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QSystemTrayIcon>
#include <utility>

namespace platform {

namespace {

// GNOME keeps the single click for the menu and hands a double click on as one activation.
bool countsClicksItself()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(QLatin1String("GNOME"));
}

void fill(QMenu& menu, const TrayRequest& request)
{
    for (const auto& [command, caption] : request.entries) {
        if (caption.isEmpty()) {
            menu.addSeparator();
        } else {
            menu.addAction(caption)->setData(command);
        }
    }
    if (!menu.isEmpty()) {
        menu.setDefaultAction(menu.actions().constFirst());
    }
}

class QtTrayIcon : public TrayIcon {
public:
    explicit QtTrayIcon(TrayRequest request)
        : m_request(std::move(request))
    {
        fill(m_menu, m_request);
        // The commands may remove the icon, which mustn't happen below its own signals.
        QObject::connect(
            &m_menu, &QMenu::triggered, &m_icon,
            [this](const QAction* entry) { m_request.chosen(entry->data().toInt()); },
            Qt::QueuedConnection);
        QObject::connect(
            &m_icon, &QSystemTrayIcon::activated, &m_icon,
            [this](QSystemTrayIcon::ActivationReason reason) { activate(reason); },
            Qt::QueuedConnection);
        m_icon.setIcon(QApplication::windowIcon());
        m_icon.setToolTip(m_request.tip);
        m_icon.setContextMenu(&m_menu);
        m_icon.show();
    }

private:
    void activate(QSystemTrayIcon::ActivationReason reason)
    {
        if (reason == QSystemTrayIcon::DoubleClick ||
            (reason == QSystemTrayIcon::Trigger && (countsClicksItself() || isSecondClick()))) {
            m_clicked.invalidate();
            m_request.doubleClicked();
        }
    }

    // Most desktops tell of each click alone.
    bool isSecondClick()
    {
        const bool second =
            m_clicked.isValid() && m_clicked.elapsed() <= QApplication::doubleClickInterval();
        m_clicked.start();
        return second;
    }

    TrayRequest m_request;
    QElapsedTimer m_clicked;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
};

} // namespace

std::unique_ptr<TrayIcon> QtTray::add(TrayRequest request)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        return nullptr;
    }
    return std::make_unique<QtTrayIcon>(std::move(request));
}

} // namespace platform
