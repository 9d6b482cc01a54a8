#pragma once

#include "platform/desktop/dialogs.h"
#include "platform/devices/mail_socket.h"
#include "publishing/mail/mail_message.h"
#include "publishing/mail/mail_settings.h"
#include "publishing/mail/sending_status.h"

#include <QObject>
#include <QString>
#include <memory>

namespace mail {

// Sends mail and keeps the program alive meanwhile. Without security it is the classic client: one
// dialogue whose steps never learn of a failure. With STARTTLS or TLS a refusal ends the sending.
// Both end when the program closes, when the client goes, or with leave(), and then say nothing
// more.
class SmtpClient : public QObject, private platform::MailSocketListener {
    Q_OBJECT

public:
    explicit SmtpClient(SendingStatus& status, QObject* parent = nullptr);
    ~SmtpClient() override;

    MailSettings settings; // read them before sending
    QString password;      // of settings.user; kept nowhere else

    // Sets MailRecipient and MailMessageText from the draft and runs SendEmail(); returns when the
    // sending is over. Does nothing while another one is under way.
    void Send(MailDraft draft);
    [[nodiscard]] bool isSending() const { return m_sending; }

    // The window unloads: a sending under way ends, and Response is emptied.
    void leave();

    // The classic dialogue, step by step.
    void SendEmail();
    void WaitFor(const QByteArray& ResponseCode);
    void Replay(const QByteArray& Text);
    [[nodiscard]] const QByteArray& Response() const { return m_response; }

signals:
    void sendingChanged(bool sending);

private:
    void DataArrival() override;
    void nameServer();
    void sendPlainly(MailDraft draft);
    [[nodiscard]] bool compose(PlainMessage message);
    void sendSecured(const MailDraft& draft);
    [[nodiscard]] bool converse(const MailDraft& draft, QString& failure);
    void tellOutcome(const QString& failure);
    void runDialogue();
    [[nodiscard]] bool await(const QByteArray& code);
    [[nodiscard]] bool awaitFirstReply(double& elapsed);
    [[nodiscard]] bool awaitRightReply(const QByteArray& code, double elapsed);
    [[nodiscard]] bool exchange(const QByteArray& text, const QByteArray& code);
    [[nodiscard]] bool box(const QString& text, platform::BoxIcon icon);
    [[nodiscard]] bool pumped();

    SendingStatus& m_status;
    std::shared_ptr<platform::MailSocket> m_socket; // null before the first sending
    QByteArray m_response;
    bool m_sending = false;
    bool m_left = false;
};

} // namespace mail
