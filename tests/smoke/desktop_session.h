#pragma once

#include <QByteArray>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>

namespace smoke {

// The real program on the display of this process, driven from outside. It takes its folders from
// the environment of this process.
class DesktopSession {
public:
    // Starts the program and waits for its main window alone to be on the screen.
    DesktopSession();
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    [[nodiscard]] bool isUp() const { return m_up; }
    [[nodiscard]] qint64 processId() const { return m_program.processId(); }
    [[nodiscard]] bool isRunning() const { return m_program.state() == QProcess::Running; }

    // The inside of the main window, without the window manager's frame, in pixels of the screen.
    [[nodiscard]] QRect inside() const;
    [[nodiscard]] int windowCount() const; // all windows with the program's title
    // Wait until another window of the program has the focus, and until the main window has it.
    [[nodiscard]] bool dialogOpens() const;
    [[nodiscard]] bool dialogsAreClosed() const;
    // The number of the window that has the focus; waiting until one with this title has it, and
    // until it has gone on to another window of the program.
    [[nodiscard]] static QString focusedWindow();
    [[nodiscard]] static bool windowOpens(const QString& title);
    [[nodiscard]] bool focusMovesFrom(const QString& window) const;

    // Input, in pixels of the screen. Keys have xdotool's names: "Return", "ctrl+a".
    void click(QPoint place, int button = 1) const;
    void doubleClick(QPoint place) const;
    void wheel(QPoint place, int steps) const; // above 0 towards the user
    void type(const QString& text) const;
    void key(const QString& name) const;
    void keys(const QStringList& names) const; // one after the other

    // Closes the main window as its user does and waits for the end; the exit code, -1 when it
    // doesn't end or crashes.
    int close();
    // Sends it a signal and waits for the end; the exit code, -1 when it doesn't end or the signal
    // itself ends it.
    int endBySignal(int signal);
    // Ends the program as the kernel does when memory runs out.
    void kill();

private:
    int exitCode();
    [[nodiscard]] bool isMainFocused() const;
    [[nodiscard]] QStringList visibleWindows() const;

    QProcess m_program;
    QString m_mainWindow; // its number
    bool m_up = false;
};

// Starts the program once more and waits for its end; its exit code, -1 when it goes on running.
[[nodiscard]] int runToItsEnd(const QStringList& arguments);

} // namespace smoke
