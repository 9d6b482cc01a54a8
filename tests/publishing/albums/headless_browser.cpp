#include "publishing/albums/headless_browser.h"

#include <QJsonDocument>
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace test {

namespace {

constexpr int kPatienceMs = 120'000; // for a machine that is busy with other tests
constexpr int kEndMs = 10'000;
// Where the browser expects the pipes.
constexpr int kItsCommands = 3;
constexpr int kItsAnswers = 4;
constexpr int kBehindThose = 10;

// A pipe whose ends lie beyond the numbers that the browser's ends get.
std::array<int, 2> makePipe()
{
    std::array<int, 2> low{-1, -1};
    if (::pipe2(low.data(), O_CLOEXEC) != 0) {
        return low;
    }
    std::array<int, 2> ends{};
    for (std::size_t k = 0; k < ends.size(); ++k) {
        ends[k] = ::fcntl(low[k], F_DUPFD_CLOEXEC, kBehindThose);
        ::close(low[k]);
    }
    return ends;
}

QStringList argumentsFor(const QString& profile)
{
    QStringList arguments{
        QStringLiteral("--remote-debugging-pipe"),
        QStringLiteral("--user-data-dir=") + profile,
        QStringLiteral("--host-resolver-rules=MAP * ~NOTFOUND"),
        QStringLiteral("--disable-background-networking"),
        QStringLiteral("--disable-breakpad"),
        QStringLiteral("--disable-dev-shm-usage"),
        QStringLiteral("--disable-gpu"),
        QStringLiteral("about:blank"),
    };
    // The sandbox refuses to work for root.
    if (::geteuid() == 0) {
        arguments.prepend(QStringLiteral("--no-sandbox"));
    }
    return arguments;
}

} // namespace

HeadlessBrowser::HeadlessBrowser(const QString& profile)
{
    start(profile);
    if (m_complaint.isEmpty()) {
        attachToPage();
    }
}

HeadlessBrowser::~HeadlessBrowser()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_session.clear();
        static_cast<void>(send(QStringLiteral("Browser.close"), {}));
        if (!m_process.waitForFinished(kEndMs)) {
            m_process.kill();
            m_process.waitForFinished(kEndMs);
        }
    }
    ::close(m_commands);
    ::close(m_answers);
}

void HeadlessBrowser::start(const QString& profile)
{
    const auto [commandsRead, commandsWrite] = makePipe();
    const auto [answersRead, answersWrite] = makePipe();
    m_commands = commandsWrite;
    m_answers = answersRead;
    m_process.setProgram(QStringLiteral("chromium-headless-shell"));
    m_process.setArguments(argumentsFor(profile));
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(profile + QStringLiteral(".log"));
    m_process.setChildProcessModifier([commands = commandsRead, answers = answersWrite] {
        ::dup2(commands, kItsCommands);
        ::dup2(answers, kItsAnswers);
    });
    m_process.start();
    if (!m_process.waitForStarted(kPatienceMs)) {
        m_complaint = m_process.program() + QStringLiteral(": ") + m_process.errorString();
    }
    ::close(commandsRead);
    ::close(answersWrite);
}

void HeadlessBrowser::attachToPage()
{
    const QString target =
        call(QStringLiteral("Target.createTarget"), {{"url", "about:blank"}})["targetId"]
            .toString();
    m_session = call(QStringLiteral("Target.attachToTarget"),
                     {{"targetId", target}, {"flatten", true}})["sessionId"]
                    .toString();
    call(QStringLiteral("Page.enable"));
    if (m_session.isEmpty()) {
        m_complaint = QStringLiteral("the browser has no page");
    }
}

QString HeadlessBrowser::open(const QString& address)
{
    m_events.clear();
    const QJsonObject answer = call(QStringLiteral("Page.navigate"), {{"url", address}});
    if (answer.isEmpty()) {
        return QStringLiteral("no answer");
    }
    // A place on the same page loads nothing. A failure loads the browser's own page about it,
    // whose end must not be taken for that of the next one.
    const bool loads = answer.contains("loaderId");
    if (loads && !waitForEvent(QStringLiteral("Page.loadEventFired"))) {
        return QStringLiteral("it never loads");
    }
    return answer["errorText"].toString();
}

QJsonValue HeadlessBrowser::evaluate(const QString& expression)
{
    const QJsonObject answer = call(QStringLiteral("Runtime.evaluate"),
                                    {{"expression", expression}, {"returnByValue", true}});
    return answer["result"].toObject().value("value");
}

bool HeadlessBrowser::send(const QString& method, const QJsonObject& parameters)
{
    QJsonObject message{{"id", ++m_lastCall}, {"method", method}, {"params", parameters}};
    if (!m_session.isEmpty()) {
        message["sessionId"] = m_session;
    }
    QByteArray bytes = QJsonDocument(message).toJson(QJsonDocument::Compact);
    bytes += '\0';
    return ::write(m_commands, bytes.constData(), static_cast<std::size_t>(bytes.size())) ==
           bytes.size();
}

std::optional<QJsonObject> HeadlessBrowser::nextMessage()
{
    while (!m_read.contains('\0')) {
        pollfd waiting{m_answers, POLLIN, 0};
        std::array<char, 65536> piece{};
        const ssize_t count = ::poll(&waiting, 1, kPatienceMs) == 1
                                  ? ::read(m_answers, piece.data(), piece.size())
                                  : 0;
        if (count <= 0) {
            return std::nullopt;
        }
        m_read.append(piece.data(), count);
    }
    const qsizetype end = m_read.indexOf('\0');
    const QJsonObject message = QJsonDocument::fromJson(m_read.left(end)).object();
    m_read.remove(0, end + 1);
    return message;
}

QJsonObject HeadlessBrowser::call(const QString& method, const QJsonObject& parameters)
{
    if (!send(method, parameters)) {
        return {};
    }
    while (const auto message = nextMessage()) {
        if (message->value("id").toInt() == m_lastCall) {
            return message->value("result").toObject();
        }
        m_events.push_back(message->value("method").toString());
    }
    return {};
}

bool HeadlessBrowser::waitForEvent(const QString& method)
{
    while (std::find(m_events.begin(), m_events.end(), method) == m_events.end()) {
        const auto message = nextMessage();
        if (!message) {
            return false;
        }
        m_events.push_back(message->value("method").toString());
    }
    return true;
}

} // namespace test
