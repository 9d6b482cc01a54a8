#include "shell/side_activation.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace shell {

SideActivation::SideActivation(QWidget& mainWindow, Handler mainActive)
    : m_mainWindow(mainWindow)
    , m_mainActive(std::move(mainActive))
{
    qApp->installEventFilter(this);
}

void SideActivation::setPane(QWidget* pane, Handler paneActive)
{
    m_pane = pane;
    m_paneActive = std::move(paneActive);
    if (pane != nullptr && pane->isVisible()) {
        m_side = Side::Pane;
    }
}

void SideActivation::enter(const QObject* object)
{
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (widget == nullptr || widget->window() != &m_mainWindow) {
        return;
    }
    const bool inPane = m_pane != nullptr && (widget == m_pane || m_pane->isAncestorOf(widget));
    enterSide(inPane ? Side::Pane : Side::Main);
}

void SideActivation::enterSide(Side side)
{
    if (side == m_side) {
        return;
    }
    m_side = side;
    const Handler& handler = side == Side::Pane ? m_paneActive : m_mainActive;
    if (handler) {
        handler();
    }
}

bool SideActivation::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::FocusIn:
        enter(watched);
        break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        if (watched == m_pane) {
            enterSide(event->type() == QEvent::ShowToParent ? Side::Pane : Side::Main);
        }
        break;
    case QEvent::WindowActivate:
        if (watched == &m_mainWindow) {
            const QWidget* focus = m_mainWindow.focusWidget();
            enter(focus != nullptr ? focus : &m_mainWindow);
        }
        break;
    case QEvent::WindowDeactivate:
        if (watched == &m_mainWindow) {
            m_side = Side::None;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace shell
