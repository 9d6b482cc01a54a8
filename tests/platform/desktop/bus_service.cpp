#include "platform/desktop/bus_service.h"

#include <QDBusConnection>
#include <utility>

BusService::BusService(const QString& name, Answer answer)
    : m_name(name)
    , m_answer(std::move(answer))
{
    QDBusConnection connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    m_isThere =
        connection.registerVirtualObject(QStringLiteral("/"), &m_object, QDBusConnection::SubPath);
    m_object.moveToThread(&m_thread);
    m_thread.start();
    m_isThere = connection.registerService(name) && m_isThere;
}

BusService::~BusService()
{
    QDBusConnection::disconnectFromBus(m_name);
    m_thread.quit();
    m_thread.wait();
}

std::vector<QDBusMessage> BusService::calls()
{
    const std::lock_guard lock(m_lock);
    return m_calls;
}

QString BusService::Object::introspect(const QString& /*path*/) const
{
    return {};
}

bool BusService::Object::handleMessage(const QDBusMessage& message,
                                       const QDBusConnection& connection)
{
    const std::lock_guard lock(m_service.m_lock);
    m_service.m_calls.push_back(message);
    if (const std::optional<QDBusMessage> answer = m_service.m_answer(message)) {
        connection.send(*answer);
    }
    return true;
}
