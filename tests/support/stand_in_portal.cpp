#include "support/stand_in_portal.h"

#include <QTimer>
#include <QUrl>
#include <utility>

namespace support {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kConnection = QStringLiteral("stand-in portal");

QString requestPath(const QString& caller, const QString& token)
{
    QString sender = caller.mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("%1/request/%2/%3").arg(kPath, sender, token);
}

} // namespace

StandInPortal::StandInPortal(QString folder)
    : m_folder(std::move(folder))
    , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnection))
{
    m_bus.registerObject(kPath, this, QDBusConnection::ExportAllSlots);
    m_bus.registerService(kService);
}

StandInPortal::~StandInPortal()
{
    m_bus.unregisterService(kService);
    m_bus.unregisterObject(kPath);
    QDBusConnection::disconnectFromBus(kConnection);
}

QDBusObjectPath StandInPortal::Screenshot(const QString& /*parentWindow*/, const QVariantMap& asked,
                                          const QDBusMessage& message)
{
    options = asked;
    QString token = asked.value(QStringLiteral("handle_token")).toString();
    if (answer == Answer::UnderAnotherPath) {
        token = QStringLiteral("its_own");
    }
    const QString request = requestPath(message.service(), token);
    if (answer != Answer::Never) {
        QTimer::singleShot(delay, this, [this, request] { respond(request); });
    }
    return QDBusObjectPath(request);
}

QString StandInPortal::writtenUri()
{
    if (camera) {
        picture = camera();
    }
    files.append(QStringLiteral("%1/shot%2.png").arg(m_folder).arg(files.size()));
    picture.save(files.last(), "PNG");
    return QUrl::fromLocalFile(files.last()).toString();
}

void StandInPortal::respond(const QString& request)
{
    QDBusMessage signal = QDBusMessage::createSignal(
        request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
    if (answer == Answer::No) {
        signal << 1U << QVariantMap();
    } else {
        signal << 0U << QVariantMap{{"uri", uri.isEmpty() ? writtenUri() : uri}};
    }
    m_bus.send(signal);
    if (answer == Answer::Twice) {
        m_bus.send(signal);
    }
}

} // namespace support
