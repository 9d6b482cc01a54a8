#include "publishing/mail/secure_session.h"

#include "publishing/mail/mail_addresses.h"
#include "publishing/mail/mail_encoding.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mail {

namespace {

using Move = SecureSession::Move;
using Stage = SecureSession::Stage;
using Step = SecureSession::Step;

struct StageFacts {
    Stage stage;
    int code;            // the reply that goes on; 0: none is due
    int patience;        // seconds
    const char* refusal; // %1 is the server, %2 whom or what it is about
};

constexpr std::array<StageFacts, 12> kStages{{
    {Stage::Handshake, 0, 60, "The mail server %1 can't be reached in an encrypted way."},
    {Stage::Greeting, 220, 60, "The mail server %1 takes no mail now."},
    {Stage::Hello, 250, 60, "The mail server %1 doesn't answer the greeting of this computer."},
    {Stage::AskToSecure, 220, 60, "The mail server %1 refuses encryption."},
    {Stage::Login, 235, 60, "The mail server %1 refuses to log in the user %2."},
    {Stage::Sender, 250, 120, "The mail server %1 refuses the sender %2."},
    {Stage::Recipient, 250, 120, "The mail server %1 refuses the recipient %2."},
    {Stage::Data, 354, 120, "The mail server %1 refuses to take a message."},
    {Stage::Message, 0, 120, "The mail server %1 ended the message before its end."},
    {Stage::Delivery, 250, 600, "The mail server %1 refuses the message."},
    {Stage::Leaving, 221, 10, ""},
    {Stage::Over, 0, 60, ""},
}};

constexpr int kAsks = 334;     // a question of the login
constexpr int kForwards = 251; // also a yes to a recipient
constexpr int kWillTry = 252;  // and this

const QString kNothingSent = QStringLiteral("Nothing was sent.");
const QString kNoEncryption =
    QStringLiteral("The mail server %1 offers no encryption (STARTTLS). It isn't used without.");
const QString kNoLogin =
    QStringLiteral("The mail server %1 offers no way to log in that this program knows.");
const QString kNotProved =
    QStringLiteral("The mail server %1 doesn't prove that it knows the password of the user %2.");
const QString kNoUnicode =
    QStringLiteral("The mail server %1 takes no addresses beyond plain letters.");
const QString kTooLarge = QStringLiteral(
    "The message has %2 bytes, and the mail server %1 takes messages of at most %3.");
const QString kNotTrusted = QStringLiteral("The mail server %1 can't be trusted.");
const QString kNotReached = QStringLiteral("The mail server %1 can't be reached.");
const QString kMaybeSent = QStringLiteral("Whether the message was sent isn't known.");
const QString kServerSays = QStringLiteral("The server says: %1");
const QString kNoReply = QStringLiteral("What it says is no reply of a mail server.");
const QString kOutOfTurn = QStringLiteral("It says more than it is asked.");
const QString kAsksForMore = QStringLiteral("It asks for more than name and password.");
const QString kSilent = QStringLiteral("It didn't answer for %1 seconds.");

const StageFacts& factsOf(Stage stage)
{
    return *std::find_if(kStages.begin(), kStages.end(),
                         [stage](const StageFacts& row) { return row.stage == stage; });
}

bool isYes(Stage stage, int code)
{
    return code == factsOf(stage).code ||
           (stage == Stage::Recipient && (code == kForwards || code == kWillTry)) ||
           (stage == Stage::Login && code == kAsks);
}

// The name as servers take it in a greeting.
QByteArray greetable(const QString& computer)
{
    QByteArray name;
    for (const QChar one : computer) {
        if (one.unicode() < 0x80 && (one.isLetterOrNumber() || one == u'-' || one == u'.')) {
            name += one.toLatin1();
        }
    }
    return name.isEmpty() ? QByteArray("localhost") : name;
}

} // namespace

SecureSession::SecureSession(SessionFacts facts)
    : m_facts(std::move(facts))
    , m_stage(m_facts.security == MailSecurity::Tls ? Stage::Handshake : Stage::Greeting)
{
}

int SecureSession::patience() const
{
    return factsOf(m_stage).patience;
}

// A server that says more before it is asked for more would give the next question an answer that
// isn't its own.
Step SecureSession::arrived(const QByteArray& bytes)
{
    m_reader.add(bytes);
    Step step;
    while (step.move == Move::Wait && step.send.isEmpty()) {
        const std::optional<SmtpReply> reply = m_reader.next();
        if (!reply) {
            return m_reader.isBroken() ? giveUp(kNoReply) : Step();
        }
        step = answered(*reply);
    }
    const bool asks =
        (step.move == Move::Wait && m_stage != Stage::Leaving) || step.move == Move::SendMessage;
    return asks && !m_reader.isEmpty() ? fail(refusal(), kOutOfTurn) : step;
}

Step SecureSession::answered(const SmtpReply& reply)
{
    if (m_stage == Stage::Leaving) {
        m_stage = Stage::Over;
        return {Move::Done};
    }
    return isYes(m_stage, reply.code) ? goOn(reply) : refuse(kServerSays.arg(reply.words()));
}

Step SecureSession::goOn(const SmtpReply& reply)
{
    switch (m_stage) {
    case Stage::Greeting:
        return sayHello();
    case Stage::Hello:
        return heardHello(reply);
    case Stage::AskToSecure:
        m_stage = Stage::Handshake;
        // What came in the clear must not be taken for something encrypted.
        return m_reader.isEmpty() ? Step{Move::Secure} : fail(refusal(), kOutOfTurn);
    case Stage::Login:
        return nextOfLogin(reply);
    case Stage::Sender:
        return nameRecipient();
    case Stage::Recipient:
        return m_named < m_facts.recipients.size() ? nameRecipient() : send(Stage::Data, "DATA");
    case Stage::Data:
        m_stage = Stage::Message;
        return {Move::SendMessage};
    default:
        return send(Stage::Leaving, "QUIT");
    }
}

Step SecureSession::secured()
{
    if (!m_reader.isEmpty()) {
        return fail(refusal(), kOutOfTurn);
    }
    m_secured = true;
    if (m_facts.security == MailSecurity::StartTls) {
        return sayHello();
    }
    m_stage = Stage::Greeting;
    return {};
}

Step SecureSession::sayHello()
{
    return send(Stage::Hello, "EHLO " + greetable(m_facts.computer));
}

// What was offered in the clear counts for nothing once the connection is encrypted.
Step SecureSession::heardHello(const SmtpReply& reply)
{
    m_offers.clear();
    for (const QByteArray& line : reply.lines.mid(1)) {
        m_offers.append(line.simplified().toUpper());
    }
    if (m_secured) {
        return m_facts.user.name.isEmpty() ? nameSender() : beginLogin();
    }
    return offer("STARTTLS") ? send(Stage::AskToSecure, "STARTTLS")
                             : fail(kNoEncryption.arg(m_facts.server), {});
}

Step SecureSession::beginLogin()
{
    const QByteArrayList ways = offer("AUTH").value_or(QByteArray()).split(' ');
    m_login = bestLogin(ways, m_facts.user, m_facts.nonce);
    return m_login != nullptr ? send(Stage::Login, m_login->command())
                              : fail(kNoLogin.arg(m_facts.server), {});
}

Step SecureSession::nextOfLogin(const SmtpReply& reply)
{
    if (reply.code != kAsks) {
        return m_login->isProved() ? nameSender()
                                   : fail(kNotProved.arg(m_facts.server, m_facts.user.name), {});
    }
    const QByteArray question = QByteArray::fromBase64(reply.lines.join());
    if (const std::optional<QByteArray> answer = m_login->answer(question)) {
        return send(Stage::Login, answer->toBase64());
    }
    return m_login->isProved() ? fail(refusal(), kAsksForMore)
                               : fail(kNotProved.arg(m_facts.server, m_facts.user.name), {});
}

Step SecureSession::nameSender()
{
    const qint64 most = offer("SIZE").value_or(QByteArray()).toLongLong();
    if (most > 0 && m_facts.messageSize > most) {
        return fail(kTooLarge.arg(m_facts.server, QString::number(m_facts.messageSize),
                                  QString::number(most)),
                    {});
    }
    if (needsUnicode() && !offer("SMTPUTF8")) {
        return fail(kNoUnicode.arg(m_facts.server), {});
    }
    return send(Stage::Sender,
                "MAIL FROM:<" + onTheWire(m_facts.sender) + '>' +
                    (offer("SIZE") ? " SIZE=" + QByteArray::number(m_facts.messageSize) : "") +
                    (needsUnicode() ? " SMTPUTF8" : ""));
}

Step SecureSession::nameRecipient()
{
    return send(Stage::Recipient, "RCPT TO:<" + onTheWire(m_facts.recipients[m_named++]) + '>');
}

// Each line of the message has ended, so the dot stands on a line of its own.
Step SecureSession::messageSent()
{
    if (!m_reader.isEmpty()) {
        return fail(refusal(), kOutOfTurn);
    }
    return send(Stage::Delivery, ".");
}

Step SecureSession::send(Stage stage, const QByteArray& command)
{
    m_stage = stage;
    return {Move::Wait, command + "\r\n"};
}

// A message that is with the server is sent, whatever becomes of the farewell.
Step SecureSession::lost(platform::MailLoss why, const QString& words)
{
    if (m_stage == Stage::Leaving) {
        m_stage = Stage::Over;
        return {Move::Done};
    }
    if (why == platform::MailLoss::NotTrusted) {
        return fail(kNotTrusted.arg(m_facts.server), words);
    }
    if (isBeforeGreeting() && why != platform::MailLoss::NotEncrypted) {
        return fail(kNotReached.arg(m_facts.server), words);
    }
    return fail(refusal(), words, outcome());
}

Step SecureSession::tookTooLong()
{
    return giveUp(kSilent.arg(patience()));
}

Step SecureSession::giveUp(const QString& reason)
{
    return m_stage == Stage::Leaving ? lost(platform::MailLoss::PeerClosed, {})
                                     : fail(refusal(), reason, outcome());
}

// A farewell inside the message would be a part of it.
Step SecureSession::refuse(const QString& reason)
{
    const bool mayLeave = m_stage != Stage::Message;
    Step step = fail(refusal(), reason);
    step.send = mayLeave ? "QUIT\r\n" : "";
    return step;
}

QString SecureSession::refusal() const
{
    const QString subject = m_stage == Stage::Login       ? m_facts.user.name
                            : m_stage == Stage::Recipient ? m_facts.recipients[m_named - 1]
                                                          : m_facts.sender;
    return QString::fromLatin1(factsOf(m_stage).refusal)
        .replace(QLatin1String("%1"), m_facts.server)
        .replace(QLatin1String("%2"), subject);
}

// Without an answer to the whole message nobody knows.
QString SecureSession::outcome() const
{
    return m_stage == Stage::Delivery ? kMaybeSent : kNothingSent;
}

Step SecureSession::fail(const QString& sentence, const QString& reason)
{
    return fail(sentence, reason, kNothingSent);
}

Step SecureSession::fail(const QString& sentence, const QString& reason, const QString& outcome)
{
    m_failure = sentence + u'\n' + (reason.isEmpty() ? QString() : reason + u'\n') + outcome;
    m_stage = Stage::Over;
    return {Move::Failed};
}

std::optional<QByteArray> SecureSession::offer(const QByteArray& keyword) const
{
    for (const QByteArray& line : m_offers) {
        if (line == keyword || line.startsWith(keyword + ' ')) {
            return line.mid(keyword.size() + 1);
        }
    }
    return std::nullopt;
}

bool SecureSession::isBeforeGreeting() const
{
    return m_stage == Stage::Greeting || (m_stage == Stage::Handshake && m_offers.isEmpty());
}

bool SecureSession::needsUnicode() const
{
    return m_facts.headNeedsUnicode || !isAscii(onTheWire(m_facts.sender)) ||
           std::any_of(m_facts.recipients.begin(), m_facts.recipients.end(),
                       [](const QString& one) { return !isAscii(onTheWire(one)); });
}

} // namespace mail
