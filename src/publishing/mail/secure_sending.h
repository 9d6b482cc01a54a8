#pragma once

#include "platform/devices/mail_socket.h"
#include "publishing/mail/mime_message.h"
#include "publishing/mail/secure_session.h"
#include "publishing/mail/sending_status.h"

#include <memory>

namespace mail {

// Drives one encrypted session over a socket that is told host and port already. It goes on by
// itself while events run; the message is taken piece by piece as the network takes it.
class SecureSending : private platform::MailSocketListener {
public:
    // Status and message have to outlive it.
    SecureSending(std::shared_ptr<platform::MailSocket> socket, SessionFacts facts,
                  MimeMessage& message, SendingStatus& status);
    ~SecureSending() override;
    SecureSending(const SecureSending&) = delete;
    SecureSending& operator=(const SecureSending&) = delete;

    // To be called now and then: ends what takes too long.
    void checkTime();
    [[nodiscard]] bool isOver() const { return m_over; }
    [[nodiscard]] const QString& failure() const { return m_failure; } // empty: it is sent

private:
    void DataArrival() override;
    void secured() override;
    void roomToSend() override;
    void lost(platform::MailLoss why, const QString& words) override;

    void perform(const SecureSession::Step& step);
    void beginMessage();
    void feed();
    void showProgress();
    void end(const QString& failure);

    std::shared_ptr<platform::MailSocket> m_socket;
    SecureSession m_session;
    MimeMessage& m_message;
    SendingStatus& m_status;
    double m_since = 0; // when it got on last, in steady seconds
    qint64 m_fed = 0;   // bytes of the message
    int m_percent = -1;
    bool m_feeding = false;
    bool m_over = false;
    QString m_failure;
};

} // namespace mail
