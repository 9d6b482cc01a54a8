#pragma once

#include "platform/devices/mail_socket.h"
#include "publishing/mail/mail_settings.h"
#include "publishing/mail/smtp_login.h"
#include "publishing/mail/smtp_reply.h"

#include <QByteArrayList>
#include <QStringList>
#include <memory>
#include <optional>

namespace mail {

struct SessionFacts {
    QString server;
    QString computer; // name of this one
    MailSecurity security = MailSecurity::StartTls;
    MailUser user;          // logs in where the name isn't empty
    QString sender;         // addresses, checked already
    QStringList recipients; // at least one
    qint64 messageSize = 0; // bytes, near the truth
    bool headNeedsUnicode = false;
    QByteArray nonce; // see bestLogin()
};

// One encrypted dialogue with a mail server, as nothing but what comes of each thing that happens.
// Whoever drives it owns socket, clock and message. Any refusal ends it.
class SecureSession {
public:
    enum class Move {
        Wait,        // for whatever comes next
        Secure,      // the socket from here on, then tell secured()
        SendMessage, // then tell messageSent()
        Done,        // it is with the server
        Failed,      // failure() says why
    };
    // What to send, at once and ahead of the move.
    struct Step {
        Move move = Move::Wait;
        QByteArray send = {};
    };

    explicit SecureSession(SessionFacts facts);

    [[nodiscard]] Step arrived(const QByteArray& bytes);
    [[nodiscard]] Step secured();
    [[nodiscard]] Step messageSent();
    [[nodiscard]] Step lost(platform::MailLoss why, const QString& words);
    [[nodiscard]] Step tookTooLong();

    // Seconds in which the next thing has to happen; each piece of the message that goes out begins
    // them anew.
    [[nodiscard]] int patience() const;
    // What went wrong, in whole sentences, with the server's words.
    [[nodiscard]] const QString& failure() const { return m_failure; }

    enum class Stage {
        Handshake,
        Greeting,
        Hello,
        AskToSecure,
        Login,
        Sender,
        Recipient,
        Data,
        Message,
        Delivery,
        Leaving,
        Over,
    };

private:
    [[nodiscard]] Step answered(const SmtpReply& reply);
    [[nodiscard]] Step goOn(const SmtpReply& reply);
    [[nodiscard]] Step sayHello();
    [[nodiscard]] Step heardHello(const SmtpReply& reply);
    [[nodiscard]] Step nextOfLogin(const SmtpReply& reply);
    [[nodiscard]] Step beginLogin();
    [[nodiscard]] Step nameSender();
    [[nodiscard]] Step nameRecipient();
    [[nodiscard]] Step send(Stage stage, const QByteArray& command);
    [[nodiscard]] Step fail(const QString& sentence, const QString& reason);
    [[nodiscard]] Step fail(const QString& sentence, const QString& reason, const QString& outcome);
    [[nodiscard]] Step giveUp(const QString& reason);
    [[nodiscard]] Step refuse(const QString& reason);
    [[nodiscard]] QString refusal() const;
    [[nodiscard]] QString outcome() const;
    [[nodiscard]] bool isBeforeGreeting() const;
    [[nodiscard]] std::optional<QByteArray> offer(const QByteArray& keyword) const;
    [[nodiscard]] bool needsUnicode() const;

    SessionFacts m_facts;
    ReplyReader m_reader;
    QByteArrayList m_offers; // lines of the last hello, in capitals
    std::unique_ptr<SmtpLogin> m_login;
    qsizetype m_named = 0; // recipients so far
    Stage m_stage;
    bool m_secured = false;
    QString m_failure;
};

} // namespace mail
