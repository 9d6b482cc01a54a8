#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>

namespace platform {

// Where the desktop's secret service is found.
inline const QString kSecretService = QStringLiteral("org.freedesktop.secrets");

// A question of the secret service to the user, such as for the password of a keyring. Used inside
// this folder only.
class SecretPrompt : public QObject {
    Q_OBJECT

public:
    explicit SecretPrompt(QString path);

    // Lets events run until the user has answered; false when they dismiss the question, the
    // service goes away, or the program closes, which takes the question away.
    [[nodiscard]] bool run();

private slots:
    void complete(bool dismissed, const QDBusVariant& result);

private:
    void send(const char* method, const QVariantList& arguments);
    void end(bool answered);

    QString m_path;
    bool m_ended = false;
    bool m_answered = false;
};

} // namespace platform
