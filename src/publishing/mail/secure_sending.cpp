#include "publishing/mail/secure_sending.h"

#include "platform/os/clock.h"

#include <algorithm>
#include <utility>

namespace mail {

namespace {

// Enough to keep a fast line busy, and little beside any message that is worth it.
constexpr qint64 kAhead = 256 * 1024; // bytes

const QString kConnecting = QStringLiteral("Status: Connecting to %1");
const QString kSending = QStringLiteral("Status: Sending mail message (%1 %)");
const QString kUnreadable =
    QStringLiteral("The picture can't be read to its end.\nNothing was sent.");

platform::MailEncryption encryptionOf(MailSecurity security)
{
    return security == MailSecurity::Tls ? platform::MailEncryption::AtOnce
                                         : platform::MailEncryption::Later;
}

} // namespace

SecureSending::SecureSending(std::shared_ptr<platform::MailSocket> socket, SessionFacts facts,
                             MimeMessage& message, SendingStatus& status)
    : m_socket(std::move(socket))
    , m_session(facts)
    , m_message(message)
    , m_status(status)
    , m_since(platform::theClock().steadySeconds())
{
    m_status.showStatus(kConnecting.arg(facts.server));
    m_socket->setListener(this);
    m_socket->setEncryption(encryptionOf(facts.security));
    m_socket->Connect();
}

SecureSending::~SecureSending()
{
    m_socket->setListener(nullptr);
    m_socket->Close();
}

void SecureSending::checkTime()
{
    if (!m_over && platform::theClock().steadySeconds() - m_since > m_session.patience()) {
        perform(m_session.tookTooLong());
    }
}

void SecureSending::DataArrival()
{
    perform(m_session.arrived(m_socket->GetData()));
}

void SecureSending::secured()
{
    m_since = platform::theClock().steadySeconds();
    perform(m_session.secured());
}

void SecureSending::lost(platform::MailLoss why, const QString& words)
{
    perform(m_session.lost(why, words));
}

void SecureSending::roomToSend()
{
    if (m_feeding) {
        feed();
    }
}

// Bytes alone win a server no time: only a whole reply makes a step that isn't empty.
void SecureSending::perform(const SecureSession::Step& step)
{
    if (m_over) {
        return;
    }
    if (step.move != SecureSession::Move::Wait || !step.send.isEmpty()) {
        m_since = platform::theClock().steadySeconds();
    }
    if (!step.send.isEmpty()) {
        m_socket->SendData(step.send);
    }
    switch (step.move) {
    case SecureSession::Move::Secure:
        return m_socket->secure();
    case SecureSession::Move::SendMessage:
        return beginMessage();
    case SecureSession::Move::Done:
    case SecureSession::Move::Failed:
        return end(m_session.failure());
    case SecureSession::Move::Wait:
        break;
    }
}

void SecureSending::beginMessage()
{
    m_feeding = true;
    feed();
}

// A message that can't be completed is never ended, so the server drops it.
void SecureSending::feed()
{
    while (m_socket->unsent() < kAhead) {
        const QByteArray piece = m_message.next();
        if (piece.isEmpty()) {
            m_feeding = false;
            showProgress();
            return m_message.isBroken() ? end(kUnreadable) : perform(m_session.messageSent());
        }
        m_socket->SendData(piece);
        m_fed += piece.size();
        m_since = platform::theClock().steadySeconds();
    }
    showProgress();
}

void SecureSending::showProgress()
{
    const qint64 whole = std::max<qint64>(m_message.size(), 1);
    const int percent = int(std::min<qint64>(m_fed * 100 / whole, 100));
    if (std::exchange(m_percent, percent) != percent) {
        m_status.showStatus(kSending.arg(percent));
    }
}

void SecureSending::end(const QString& failure)
{
    m_over = true;
    m_failure = failure;
    m_feeding = false;
    m_socket->Close();
}

} // namespace mail
