#include "smoke/desktop_session.h"

#include "smoke/screen.h"

#include <QRegularExpression>
#include <csignal>

namespace smoke {

namespace {

constexpr int kPatience = 60000; // milliseconds

const QString kTitle = QStringLiteral("Vistara");

QByteArray output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(kPatience)) {
        process.kill();
        process.waitForFinished(kPatience);
    }
    return process.readAllStandardOutput();
}

void xdotool(const QStringList& arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

QStringList visibleWindows(const QStringList& which)
{
    const QByteArray found =
        output(QStringLiteral("xdotool"),
               QStringList{QStringLiteral("search"), QStringLiteral("--onlyvisible")} + which);
    return QString::fromLatin1(found).split(u'\n', Qt::SkipEmptyParts);
}

QStringList visibleWindowsTitled(const QString& title)
{
    return visibleWindows({QStringLiteral("--name"), u'^' + title + u'$'});
}

QRect insideOf(const QString& window)
{
    const QString facts =
        QString::fromLocal8Bit(output(QStringLiteral("xwininfo"), {QStringLiteral("-id"), window}));
    const auto number = [&facts](const QString& name) {
        const QRegularExpression line(name + QStringLiteral(": +(-?\\d+)"));
        return line.match(facts).captured(1).toInt();
    };
    return {number(QStringLiteral("Absolute upper-left X")),
            number(QStringLiteral("Absolute upper-left Y")), number(QStringLiteral("Width")),
            number(QStringLiteral("Height"))};
}

QStringList movedTo(QPoint place)
{
    return {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
            QStringLiteral("click")};
}

} // namespace

DesktopSession::DesktopSession()
{
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    m_program.start(QStringLiteral(VISTARA_PROGRAM), QStringList());
    m_program.waitForStarted(kPatience);
    const int screenWidth = screen().width();
    m_up = waitUntil([&] {
        // The window of the greeting has the same title.
        const QStringList windows = visibleWindowsTitled(kTitle);
        m_mainWindow = windows.size() == 1 ? windows.first() : QString();
        return !m_mainWindow.isEmpty() && isMainFocused() &&
               inside().width() > screenWidth - screenWidth / 20;
    });
}

DesktopSession::~DesktopSession()
{
    if (isRunning()) {
        kill();
    }
}

QRect DesktopSession::inside() const
{
    return insideOf(m_mainWindow);
}

int DesktopSession::windowCount() const
{
    return static_cast<int>(visibleWindowsTitled(kTitle).size());
}

bool DesktopSession::isMainFocused() const
{
    return focusedWindow() == m_mainWindow;
}

bool DesktopSession::dialogOpens() const
{
    return focusMovesFrom(m_mainWindow);
}

bool DesktopSession::dialogsAreClosed() const
{
    return waitUntil([this] { return isMainFocused(); });
}

QString DesktopSession::focusedWindow()
{
    return QString::fromLatin1(
               output(QStringLiteral("xdotool"), {QStringLiteral("getwindowfocus")}))
        .trimmed();
}

bool DesktopSession::windowOpens(const QString& title)
{
    return waitUntil([&title] { return visibleWindowsTitled(title).contains(focusedWindow()); });
}

// Between two windows nothing has the focus for a moment.
bool DesktopSession::focusMovesFrom(const QString& window) const
{
    return waitUntil([&] {
        const QString focused = focusedWindow();
        return focused != window && visibleWindows().contains(focused);
    });
}

QStringList DesktopSession::visibleWindows() const
{
    return smoke::visibleWindows({QStringLiteral("--pid"), QString::number(m_program.processId())});
}

void DesktopSession::click(QPoint place, int button) const
{
    xdotool(movedTo(place) << QString::number(button));
}

void DesktopSession::doubleClick(QPoint place) const
{
    xdotool(movedTo(place) << QStringLiteral("--repeat") << QStringLiteral("2")
                           << QStringLiteral("--delay") << QStringLiteral("60")
                           << QStringLiteral("1"));
}

void DesktopSession::wheel(QPoint place, int steps) const
{
    const QString button = steps > 0 ? QStringLiteral("5") : QStringLiteral("4");
    xdotool(movedTo(place) << QStringLiteral("--repeat") << QString::number(std::abs(steps))
                           << button);
}

void DesktopSession::type(const QString& text) const
{
    xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("8"), text});
}

void DesktopSession::key(const QString& name) const
{
    xdotool({QStringLiteral("key"), name});
}

void DesktopSession::keys(const QStringList& names) const
{
    for (const QString& name : names) {
        key(name);
    }
}

int DesktopSession::close()
{
    key(QStringLiteral("alt+F4"));
    return exitCode();
}

int DesktopSession::endBySignal(int signal)
{
    ::kill(static_cast<pid_t>(processId()), signal);
    return exitCode();
}

int DesktopSession::exitCode()
{
    if (!m_program.waitForFinished(kPatience)) {
        return -1;
    }
    return m_program.exitStatus() == QProcess::NormalExit ? m_program.exitCode() : -1;
}

void DesktopSession::kill()
{
    m_program.kill();
    m_program.waitForFinished(kPatience);
}

int runToItsEnd(const QStringList& arguments)
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QStringLiteral(VISTARA_PROGRAM), arguments);
    if (!program.waitForFinished(kPatience)) {
        program.kill();
        program.waitForFinished(kPatience);
        return -1;
    }
    return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
}

} // namespace smoke
