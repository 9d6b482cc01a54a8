#include "platform/desktop/screenshot_portal.h"

#include "platform/desktop/session_bus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QImageReader>
#include <QUrl>
#include <utility>

namespace platform {

namespace {

const QString kScreenshot = QStringLiteral("org.freedesktop.portal.Screenshot");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");

constexpr int kReplyTime = 10'000; // milliseconds, in which the portal may have to start
constexpr uint kSuccess = 0;
constexpr int kMostMegabytes = 512;

QString newToken()
{
    static int made = 0;
    return QStringLiteral("vistara%1").arg(++made);
}

// Known before the portal hands it back, so that no answer is missed.
QString requestPath(const QDBusConnection& bus, const QString& token)
{
    QString sender = bus.baseService().mid(1); // ":1.42"
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return kPortalPath + QStringLiteral("/request/%1/%2").arg(sender, token);
}

QImage takenFile(const QString& uri)
{
    const QUrl url(uri);
    if (!url.isLocalFile() || url.toLocalFile().isEmpty()) {
        return {};
    }
    QImageReader::setAllocationLimit(kMostMegabytes);
    const QString file = url.toLocalFile();
    QImage picture(file, "PNG");
    if (!picture.isNull() || file.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        QFile::remove(file);
    }
    return picture;
}

} // namespace

ScreenshotPortal::ScreenshotPortal(QObject* owner, std::chrono::milliseconds patience)
    : QObject(owner)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &ScreenshotPortal::giveUp);
}

void ScreenshotPortal::ask(std::function<void(const QImage&)> answer)
{
    m_answer = std::move(answer);
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        finish({});
        return;
    }
    const QString token = newToken();
    listenTo(requestPath(bus, token));
    auto call = QDBusMessage::createMethodCall(kPortalService, kPortalPath, kScreenshot,
                                               QStringLiteral("Screenshot"));
    call << QString() << QVariantMap{{"handle_token", token}, {"interactive", false}};
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, kReplyTime), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher] { takeReply(*watcher); });
    m_patience.start();
}

void ScreenshotPortal::listenTo(const QString& request)
{
    m_requests.append(request);
    QDBusConnection::sessionBus().connect(kPortalService, request, kRequest,
                                          QStringLiteral("Response"), this,
                                          SLOT(respond(uint, QVariantMap)));
}

void ScreenshotPortal::takeReply(const QDBusPendingCallWatcher& call)
{
    const QDBusPendingReply<QDBusObjectPath> reply = call;
    if (reply.isError()) {
        finish({});
    } else if (!m_requests.contains(reply.value().path())) {
        listenTo(reply.value().path()); // a portal from before the tokens
    }
}

void ScreenshotPortal::respond(uint outcome, const QVariantMap& results)
{
    const QString uri = results.value(QStringLiteral("uri")).toString();
    finish(outcome == kSuccess ? takenFile(uri) : QImage());
}

// The portal may still have its question on the screen, or be writing the file, which somebody has
// to take away.
void ScreenshotPortal::giveUp()
{
    QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
        kPortalService, m_requests.last(), kRequest, QStringLiteral("Close")));
    setParent(qApp);
    callBack({});
}

void ScreenshotPortal::finish(const QImage& picture)
{
    m_patience.stop();
    deleteLater();
    callBack(picture);
}

void ScreenshotPortal::callBack(const QImage& picture)
{
    if (const auto answer = std::exchange(m_answer, nullptr)) {
        answer(picture);
    }
}

} // namespace platform
