#pragma once

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

// A service on the session bus. It answers in a thread of its own, as another program would, since
// who calls it waits.
class BusService {
public:
    // The answer to a call; without one the caller waits in vain.
    using Answer = std::function<std::optional<QDBusMessage>(const QDBusMessage&)>;

    BusService(const QString& name, Answer answer);
    ~BusService();
    BusService(const BusService&) = delete;
    BusService& operator=(const BusService&) = delete;

    [[nodiscard]] bool isThere() const { return m_isThere; }
    [[nodiscard]] std::vector<QDBusMessage> calls();

private:
    // All paths of the service.
    class Object : public QDBusVirtualObject {
    public:
        explicit Object(BusService& service)
            : m_service(service)
        {
        }
        [[nodiscard]] QString introspect(const QString& path) const override;
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    private:
        BusService& m_service;
    };

    QString m_name;
    Answer m_answer;
    Object m_object{*this};
    QThread m_thread;
    std::mutex m_lock;
    std::vector<QDBusMessage> m_calls;
    bool m_isThere = false;
};
