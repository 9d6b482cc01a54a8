#include "smoke/desktop_session.h"

#include "smoke/screen.h"

#include <QRegularExpression>

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

QStringList visibleWindows(const QString& title)
{
    const QByteArray found = output(QStringLiteral("xdotool"),
                                    {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                     QStringLiteral("--name"), u'^' + title + u'$'});
    return QString::fromLatin1(found).split(u'\n', Qt::SkipEmptyParts);
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
        const QStringList windows = visibleWindows(kTitle);
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
    return static_cast<int>(visibleWindows(kTitle).size());
}

bool DesktopSession::isMainFocused() const
{
    const QByteArray focused =
        output(QStringLiteral("xdotool"), {QStringLiteral("getwindowfocus")});
    return QString::fromLatin1(focused).trimmed() == m_mainWindow;
}

bool DesktopSession::dialogOpens() const
{
    return waitUntil([this] { return !isMainFocused(); });
}

bool DesktopSession::dialogsAreClosed() const
{
    return waitUntil([this] { return isMainFocused(); });
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
