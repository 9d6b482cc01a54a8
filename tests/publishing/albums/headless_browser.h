#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QProcess>
#include <QString>
#include <optional>
#include <vector>

namespace test {

// The machine's browser without a screen and without a network, driven by its own protocol over two
// pipes. It ends with this.
class HeadlessBrowser {
public:
    // The profile's folder is the browser's own, made where it is missing.
    explicit HeadlessBrowser(const QString& profile);
    ~HeadlessBrowser();
    HeadlessBrowser(const HeadlessBrowser&) = delete;
    HeadlessBrowser& operator=(const HeadlessBrowser&) = delete;

    // What kept it from starting; "" for one that runs.
    [[nodiscard]] const QString& complaint() const { return m_complaint; }

    // Goes to an address and waits for the page with all that it holds. "", or what went wrong.
    QString open(const QString& address);

    // What an expression comes to on the page; undefined where it fails.
    QJsonValue evaluate(const QString& expression);

private:
    void start(const QString& profile);
    void attachToPage();
    [[nodiscard]] bool send(const QString& method, const QJsonObject& parameters);
    [[nodiscard]] std::optional<QJsonObject> nextMessage();
    QJsonObject call(const QString& method, const QJsonObject& parameters = {});
    [[nodiscard]] bool waitForEvent(const QString& method);

    QProcess m_process;
    int m_commands = -1; // where this end writes
    int m_answers = -1;  // and where it reads
    QByteArray m_read;   // and not taken yet
    std::vector<QString> m_events;
    QString m_session; // of the page
    int m_lastCall = 0;
    QString m_complaint;
};

} // namespace test
