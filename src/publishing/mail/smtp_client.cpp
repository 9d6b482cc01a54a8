#include "publishing/mail/smtp_client.h"

#include "core/constants.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pump.h"
#include "platform/os/clock.h"

#include <QPointer>

namespace mail {

namespace {

constexpr double kPatience = 50; // seconds for the first byte of a reply
constexpr std::chrono::milliseconds kNap{20};

const QString kNoReply = QStringLiteral("SMTP service error, timed out while waiting for response");
const QString kWrongCode = QStringLiteral(
    "SMTP service error, impromper response code. Code should have been: %1 Code recieved: %2");

const QString kNotYet = QStringLiteral("Encrypted mail can't be sent yet. Nothing was sent.");

const QString kConnecting = QStringLiteral("Status: Connecting to ");
const QString kSending = QStringLiteral("Status: Sending mail message");
const QString kSent = QStringLiteral("Status: Mail message sent");
const QString kClosing = QStringLiteral("Status: Closing connection.");
const QString kComplete = QStringLiteral("Status : Send Complete");

QByteArray commandWith(const char* word, const QString& text)
{
    return word + onOneLine(text).toUtf8();
}

} // namespace

SmtpClient::SmtpClient(SendingStatus& status, QObject* parent)
    : QObject(parent)
    , m_status(status)
{
}

SmtpClient::~SmtpClient() = default;

void SmtpClient::Send(const MailDraft& draft)
{
    if (m_sending) {
        return;
    }
    if (settings.security != MailSecurity::None) {
        static_cast<void>(box(kNotYet));
        return;
    }
    settings.MailRecipient = draft.to;
    settings.MailMessageText = mailMessageText(draft);
    const QPointer<SmtpClient> alive = this;
    m_sending = true;
    emit sendingChanged(true);
    SendEmail();
    if (alive != nullptr) {
        settings.MailMessageText.clear();
        m_sending = false;
        emit sendingChanged(false);
    }
}

void SmtpClient::leave()
{
    m_left = true;
    m_response.clear();
    if (m_socket != nullptr) {
        m_socket->Close();
    }
}

void SmtpClient::SendEmail()
{
    m_left = false;
    connectToServer();
    m_status.showBusy(true);
    runDialogue();
}

void SmtpClient::connectToServer()
{
    if (m_socket == nullptr) {
        m_socket = platform::makeMailSocket();
        m_socket->setListener(this);
    }
    m_socket->Close();
    m_socket->setLocalPort(0);
    m_socket->setProtocol(0);
    m_socket->setRemoteHost(settings.MailServerName);
    m_socket->setRemotePort(settings.MailServerPort);
    m_socket->Connect();
}

// No step learns whether the one before succeeded; only the end of the program, of the window or of
// this client ends them early.
void SmtpClient::runDialogue()
{
    if (!await("220")) {
        return;
    }
    m_status.showStatus(kConnecting + m_socket->RemoteHost());
    if (!exchange(commandWith("HELO ", m_socket->LocalHostName()), "250")) {
        return;
    }
    m_status.showStatus(kSending);
    if (!exchange(commandWith("MAIL FROM: ", settings.MailFromAddress), "250") ||
        !exchange(commandWith("RCPT TO: ", settings.MailRecipient), "250") ||
        !exchange("DATA", "354") || !exchange(settings.MailMessageText, "250")) {
        return;
    }
    m_status.showStatus(kSent);
    Replay("QUIT");
    m_status.showStatus(kClosing);
    if (!await("221")) {
        return;
    }
    m_socket->Close();
    m_status.showBusy(false);
    m_status.showStatus(kComplete);
}

// False when the sending is over; the client may be gone then.
bool SmtpClient::exchange(const QByteArray& text, const QByteArray& code)
{
    Replay(text);
    return await(code);
}

void SmtpClient::Replay(const QByteArray& Text)
{
    if (m_socket != nullptr && m_socket->State() == platform::MailSocket::Connected) {
        m_socket->SendData(Text + "\r\n");
    }
}

void SmtpClient::WaitFor(const QByteArray& ResponseCode)
{
    static_cast<void>(await(ResponseCode));
}

bool SmtpClient::await(const QByteArray& code)
{
    double elapsed = 0;
    if (!awaitFirstReply(elapsed)) {
        return false;
    }
    return elapsed > kPatience || awaitRightReply(code, elapsed);
}

// The time counts from midnight to midnight, so a wait across it has no limit before the next one.
bool SmtpClient::awaitFirstReply(double& elapsed)
{
    const double start = platform::theClock().secondsOfDay();
    while (m_response.isEmpty()) {
        elapsed = platform::theClock().secondsOfDay() - start;
        if (!pumped()) {
            return false;
        }
        if (elapsed > kPatience) {
            return box(kNoReply);
        }
    }
    return true;
}

// There is no limit here: the time isn't taken again, so the box stays for a time that has never
// come.
bool SmtpClient::awaitRightReply(const QByteArray& code, double elapsed)
{
    while (m_response.left(code.size()) != code) {
        if (!pumped()) {
            return false;
        }
        if (elapsed > kPatience) {
            return box(kWrongCode.arg(QString::fromUtf8(code), QString::fromUtf8(m_response)));
        }
    }
    m_response.clear();
    return true;
}

// A reply replaces the one before, read or not.
void SmtpClient::DataArrival()
{
    m_response = m_socket->GetData();
}

bool SmtpClient::box(const QString& text)
{
    const QPointer<SmtpClient> alive = this;
    platform::dialogs().showMessage(text, core::kProgramName, platform::BoxIcon::Information);
    return alive != nullptr && !m_left && !platform::isClosing();
}

bool SmtpClient::pumped()
{
    return platform::pumpWithin(kNap, this) && !m_left;
}

} // namespace mail
