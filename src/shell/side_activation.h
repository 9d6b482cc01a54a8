#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

class QWidget;

namespace shell {

// The browser pane lies inside the main window, yet each of the two becomes active as a window of
// its own would: when a press or the focus comes from the other side, or from outside the program.
// Showing the pane makes it active, and hiding it gives that back to the main window.
class SideActivation : public QObject {
public:
    using Handler = std::function<void()>;

    // The main handler is called for everything in the main window that isn't in the pane.
    SideActivation(QWidget& mainWindow, Handler mainActive);

    // The pane may come later and go earlier than the main window; one that is shown already is
    // active.
    void setPane(QWidget* pane, Handler paneActive);

private:
    enum class Side { None, Main, Pane };

    void enter(const QObject* object);
    void enterSide(Side side);
    bool eventFilter(QObject* watched, QEvent* event) override;

    QWidget& m_mainWindow;
    Handler m_mainActive;
    QPointer<QWidget> m_pane;
    Handler m_paneActive;
    Side m_side = Side::None;
};

} // namespace shell
