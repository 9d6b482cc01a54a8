#include "publishing/mail/smtp_client.h"

#include "core/constants.h"
#include "platform/desktop/pump.h"
#include "platform/os/clock.h"
#include "publishing/mail/mail_addresses.h"
#include "publishing/mail/mime_message.h"
#include "publishing/mail/secure_sending.h"

#include <QPointer>
#include <QRandomGenerator>
#include <algorithm>
#include <array>
#include <utility>

namespace mail {

namespace {

constexpr double kPatience = 50; // seconds for the first byte of a reply
constexpr std::chrono::milliseconds kNap{20};

const QString kNoReply = QStringLiteral("SMTP service error, timed out while waiting for response");
const QString kWrongCode = QStringLiteral(
    "SMTP service error, impromper response code. Code should have been: %1 Code recieved: %2");

const QString kNoSecurity = QStringLiteral(
    "The settings don't tell in a way that can be read how the connection to the mail server is "
    "secured. Choose it in the mail setup.\nNothing was sent.");
const QString kNoAddress = QStringLiteral("\u201C%1\u201D is no mail address.\nNothing was sent.");
const QString kNoRecipient = QStringLiteral("The mail has no recipient.\nNothing was sent.");
const QString kNoPicture = QStringLiteral("The picture %1 can't be read.\nNothing was sent.");

const QString kConnecting = QStringLiteral("Status: Connecting to ");
const QString kSending = QStringLiteral("Status: Sending mail message");
const QString kSent = QStringLiteral("Status: Mail message sent");
const QString kClosing = QStringLiteral("Status: Closing connection.");
const QString kComplete = QStringLiteral("Status : Send Complete");
const QString kNotSent = QStringLiteral("Status: Mail message not sent");

QByteArray commandWith(const char* word, const QString& text)
{
    return word + onOneLine(text).toUtf8();
}

// What keeps a message from going out, before anybody is asked; empty: nothing.
QString flawOf(const MailDraft& draft, const MailSettings& settings)
{
    if (settings.security == MailSecurity::Unknown) {
        return kNoSecurity;
    }
    if (!canBeSentTo(settings.MailFromAddress)) {
        return kNoAddress.arg(settings.MailFromAddress);
    }
    const std::vector<MailAddress> recipients = addressesIn(draft.to);
    const auto flaw =
        std::find_if(recipients.begin(), recipients.end(),
                     [](const MailAddress& one) { return !canBeSentTo(one.address); });
    if (flaw != recipients.end()) {
        return kNoAddress.arg(flaw->address);
    }
    return recipients.empty() ? kNoRecipient : QString();
}

QByteArray randomToken()
{
    std::array<quint32, 6> numbers;
    QRandomGenerator::system()->fillRange(numbers.data(), numbers.size());
    return QByteArray(reinterpret_cast<const char*>(numbers.data()), sizeof numbers).toHex();
}

SessionFacts factsOf(const MailDraft& draft, const MailSettings& settings, const QString& password,
                     const QString& computer, const MimeMessage& message)
{
    SessionFacts facts;
    facts.server = settings.MailServerName;
    facts.computer = computer;
    facts.security = settings.security;
    facts.user = {settings.user, password};
    facts.sender = settings.MailFromAddress;
    for (const MailAddress& one : addressesIn(draft.to)) {
        facts.recipients.append(one.address);
    }
    facts.messageSize = message.size();
    facts.headNeedsUnicode = message.needsUnicode();
    facts.nonce = randomToken();
    return facts;
}

} // namespace

SmtpClient::SmtpClient(SendingStatus& status, QObject* parent)
    : QObject(parent)
    , m_status(status)
{
}

// Somebody on the stack may still hold the socket.
SmtpClient::~SmtpClient()
{
    leave();
}

void SmtpClient::Send(MailDraft draft)
{
    if (m_sending) {
        return;
    }
    const QPointer<SmtpClient> alive = this;
    m_sending = true;
    emit sendingChanged(true);
    if (settings.security == MailSecurity::None) {
        sendPlainly(std::move(draft));
    } else {
        sendSecured(draft);
    }
    if (alive != nullptr) {
        m_sending = false;
        emit sendingChanged(false);
    }
}

// A large text is held once, so the draft goes ahead of the sending.
void SmtpClient::sendPlainly(MailDraft draft)
{
    const QPointer<SmtpClient> alive = this;
    m_left = false;
    settings.MailRecipient = draft.to;
    if (!compose(PlainMessage(std::exchange(draft, {})))) {
        return;
    }
    SendEmail();
    if (alive != nullptr) {
        settings.MailMessageText.clear();
    }
}

// False when the sending is over; the client may be gone then.
bool SmtpClient::compose(PlainMessage message)
{
    while (message.goOn()) {
        if (!platform::pump(this) || m_left) {
            return false;
        }
    }
    settings.MailMessageText = message.take();
    return true;
}

void SmtpClient::leave()
{
    m_left = true;
    m_response.clear();
    if (m_socket != nullptr) {
        m_socket->setListener(nullptr);
        m_socket->Close();
    }
}

void SmtpClient::sendSecured(const MailDraft& draft)
{
    m_left = false;
    m_status.showBusy(true);
    QString failure = flawOf(draft, settings);
    if (failure.isEmpty() && !converse(draft, failure)) {
        return;
    }
    tellOutcome(failure);
}

// False when the sending is over without any outcome; the client may be gone then.
bool SmtpClient::converse(const MailDraft& draft, QString& failure)
{
    MimeMessage message(draft, settings.MailFromAddress,
                        {QDateTime::currentDateTime(), randomToken()});
    if (message.isBroken()) {
        failure = kNoPicture.arg(draft.picture);
        return true;
    }
    nameServer();
    SecureSending sending(m_socket,
                          factsOf(draft, settings, password, m_socket->LocalHostName(), message),
                          message, m_status);
    while (!sending.isOver()) {
        if (!pumped()) {
            return false;
        }
        sending.checkTime();
    }
    failure = sending.failure();
    return true;
}

void SmtpClient::tellOutcome(const QString& failure)
{
    m_status.showBusy(false);
    m_status.showStatus(failure.isEmpty() ? kComplete : kNotSent);
    if (!failure.isEmpty()) {
        static_cast<void>(box(failure, platform::BoxIcon::Critical));
    }
}

void SmtpClient::SendEmail()
{
    m_left = false;
    nameServer();
    m_socket->setEncryption(platform::MailEncryption::None);
    m_socket->setListener(this);
    m_socket->Connect();
    m_status.showBusy(true);
    runDialogue();
}

void SmtpClient::nameServer()
{
    if (m_socket == nullptr) {
        m_socket = platform::makeMailSocket();
    }
    m_socket->Close();
    m_socket->setLocalPort(0);
    m_socket->setProtocol(0);
    m_socket->setRemoteHost(settings.MailServerName);
    m_socket->setRemotePort(settings.MailServerPort);
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
            return box(kNoReply, platform::BoxIcon::Information);
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
            return box(kWrongCode.arg(QString::fromUtf8(code), QString::fromUtf8(m_response)),
                       platform::BoxIcon::Information);
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

bool SmtpClient::box(const QString& text, platform::BoxIcon icon)
{
    const QPointer<SmtpClient> alive = this;
    platform::dialogs().showMessage(text, core::kProgramName, icon);
    return alive != nullptr && !m_left && !platform::isClosing();
}

bool SmtpClient::pumped()
{
    return platform::pumpWithin(kNap, this) && !m_left;
}

} // namespace mail
