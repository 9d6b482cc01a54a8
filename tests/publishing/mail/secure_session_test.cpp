#include "publishing/mail/secure_session.h"

#include <gtest/gtest.h>

namespace {

using mail::MailSecurity;
using mail::SecureSession;
using Move = SecureSession::Move;

const QByteArray kHello = "250-mail.example.org\r\n250-SIZE 1000\r\n250 STARTTLS\r\n";
const QByteArray kSecuredHello =
    "250-mail.example.org\r\n250-size 1000\r\n250 auth plain LOGIN\r\n";

mail::SessionFacts facts(MailSecurity security)
{
    mail::SessionFacts facts;
    facts.server = QStringLiteral("mail.example.org");
    facts.computer = QStringLiteral("my desk");
    facts.security = security;
    facts.user = {QStringLiteral("me"), QStringLiteral("secret")};
    facts.sender = QStringLiteral("me@example.org");
    facts.recipients = {QStringLiteral("a@b\u00FCro.example"), QStringLiteral("c@d.example")};
    facts.messageSize = 500;
    facts.nonce = "nonce";
    return facts;
}

// One thing that happens to a session with TLS from the start, and what comes of it.
struct Turn {
    const char* name;
    QByteArray reply; // null: the message has been sent
    Move move;
    QByteArray sent;
};

const std::vector<Turn> kTurns{
    {"greeting", "220 hi\r\n", Move::Wait, "EHLO mydesk\r\n"},
    {"hello", kSecuredHello, Move::Wait, "AUTH PLAIN AG1lAHNlY3JldA==\r\n"},
    {"login", "235 2.7.0 in\r\n", Move::Wait, "MAIL FROM:<me@example.org> SIZE=500\r\n"},
    {"sender", "250 ok\r\n", Move::Wait, "RCPT TO:<a@xn--bro-hoa.example>\r\n"},
    {"recipient", "251 will go on\r\n", Move::Wait, "RCPT TO:<c@d.example>\r\n"},
    {"recipient", "250 ok\r\n", Move::Wait, "DATA\r\n"},
    {"data", "354 go on\r\n", Move::SendMessage, ""},
    {"message", QByteArray(), Move::Wait, ".\r\n"},
    {"delivery", "250 taken\r\n", Move::Wait, "QUIT\r\n"},
    {"leaving", "221 bye\r\n", Move::Done, ""},
};

SecureSession::Step take(SecureSession& session, const Turn& turn)
{
    return turn.reply.isNull() ? session.messageSent() : session.arrived(turn.reply);
}

// A session with TLS from the start that has come through so many turns.
std::unique_ptr<SecureSession> sessionBefore(std::size_t turn)
{
    auto session = std::make_unique<SecureSession>(facts(MailSecurity::Tls));
    EXPECT_EQ(session->secured().move, Move::Wait);
    for (std::size_t i = 0; i < turn; ++i) {
        EXPECT_EQ(take(*session, kTurns[i]).move, kTurns[i].move);
    }
    return session;
}

} // namespace

TEST(SecureSession, SpeaksTheWholeDialogueToTheByte)
{
    SecureSession session(facts(MailSecurity::Tls));
    EXPECT_EQ(session.secured().move, Move::Wait);
    for (const Turn& turn : kTurns) {
        SCOPED_TRACE(turn.name);
        const SecureSession::Step step = take(session, turn);
        EXPECT_EQ(step.move, turn.move);
        EXPECT_EQ(step.send.toStdString(), turn.sent.toStdString());
    }
    EXPECT_TRUE(session.failure().isEmpty());
}

TEST(SecureSession, TakesRepliesByteByByte)
{
    SecureSession session(facts(MailSecurity::Tls));
    EXPECT_EQ(session.secured().move, Move::Wait);
    for (const Turn& turn : kTurns) {
        SecureSession::Step last =
            turn.reply.isNull() ? session.messageSent() : SecureSession::Step{};
        for (const char byte : turn.reply) {
            EXPECT_TRUE(last.send.isEmpty());
            last = session.arrived(QByteArray(1, byte));
        }
        EXPECT_EQ(last.move, turn.move);
        EXPECT_EQ(last.send, turn.sent);
    }
}

TEST(SecureSession, AsksToSecureAndGreetsAnew)
{
    SecureSession session(facts(MailSecurity::StartTls));
    EXPECT_EQ(session.arrived("220 hi\r\n").send, "EHLO mydesk\r\n");
    EXPECT_EQ(session.arrived(kHello).send, "STARTTLS\r\n");
    EXPECT_EQ(session.arrived("220 go\r\n").move, Move::Secure);
    EXPECT_EQ(session.secured().send, "EHLO mydesk\r\n");
    EXPECT_EQ(session.arrived(kSecuredHello).send, kTurns[1].sent);
}

TEST(SecureSession, NeverGoesOnInTheClear)
{
    SecureSession session(facts(MailSecurity::StartTls));
    EXPECT_EQ(session.arrived("220 hi\r\n").move, Move::Wait);
    const SecureSession::Step step = session.arrived(kSecuredHello);
    EXPECT_EQ(step.move, Move::Failed);
    EXPECT_TRUE(step.send.isEmpty());
    EXPECT_EQ(session.failure(),
              QStringLiteral("The mail server mail.example.org offers no encryption (STARTTLS). It "
                             "isn't used without.\nNothing was sent."));
}

TEST(SecureSession, TakesNothingAheadOfTheEncryptionForEncrypted)
{
    SecureSession session(facts(MailSecurity::StartTls));
    EXPECT_EQ(session.arrived("220 hi\r\n").move, Move::Wait);
    EXPECT_EQ(session.arrived(kHello).move, Move::Wait);
    EXPECT_EQ(session.arrived("220 go\r\n250 AUTH PLAIN\r\n").move, Move::Failed);
}

TEST(SecureSession, ForgetsWhatWasOfferedInTheClear)
{
    SecureSession session(facts(MailSecurity::StartTls));
    EXPECT_EQ(session.arrived("220 hi\r\n").move, Move::Wait);
    EXPECT_EQ(session.arrived("250-x\r\n250-AUTH PLAIN\r\n250 STARTTLS\r\n").send, "STARTTLS\r\n");
    EXPECT_EQ(session.arrived("220 go\r\n").move, Move::Secure);
    EXPECT_EQ(session.secured().move, Move::Wait);
    EXPECT_EQ(session.arrived("250 x\r\n").move, Move::Failed);
    EXPECT_TRUE(session.failure().contains(QStringLiteral("no way to log in")));
}

TEST(SecureSession, EndsWithTheServersWordsAtEachRefusal)
{
    for (std::size_t i = 0; i + 1 < kTurns.size(); ++i) {
        SCOPED_TRACE(kTurns[i].name);
        const std::unique_ptr<SecureSession> session = sessionBefore(i);
        const SecureSession::Step step = session->arrived("554-5.7.1 go\r\n554 away\tnow\r\n");
        EXPECT_EQ(step.move, Move::Failed);
        const bool inMessage = kTurns[i].reply.isNull();
        EXPECT_EQ(step.send, inMessage ? "" : "QUIT\r\n");
        EXPECT_TRUE(session->failure().endsWith(
            QStringLiteral("\nThe server says: 554 5.7.1 go away now\nNothing was sent.")))
            << session->failure().toStdString();
    }
}

TEST(SecureSession, TellsWhomItIsAbout)
{
    const std::unique_ptr<SecureSession> session = sessionBefore(5);
    EXPECT_EQ(session->arrived("550 no\r\n").move, Move::Failed);
    EXPECT_TRUE(session->failure().startsWith(
        QStringLiteral("The mail server mail.example.org refuses the recipient c@d.example.\n")));
}

TEST(SecureSession, EndsWhereTheConnectionEndsOrNothingComes)
{
    for (std::size_t i = 0; i + 1 < kTurns.size(); ++i) {
        SCOPED_TRACE(kTurns[i].name);
        for (const bool slow : {false, true}) {
            const std::unique_ptr<SecureSession> session = sessionBefore(i);
            EXPECT_GT(session->patience(), 0);
            const SecureSession::Step step =
                slow ? session->tookTooLong()
                     : session->lost(platform::MailLoss::Network, QStringLiteral("Reset."));
            EXPECT_EQ(step.move, Move::Failed);
            const bool unknown = kTurns[i].name == std::string("delivery");
            EXPECT_TRUE(session->failure().endsWith(
                unknown ? QStringLiteral("Whether the message was sent isn't known.")
                        : QStringLiteral("Nothing was sent.")));
        }
    }
}

TEST(SecureSession, AMessageThatWasTakenIsSentWhateverBecomesOfTheFarewell)
{
    EXPECT_EQ(sessionBefore(9)->lost(platform::MailLoss::PeerClosed, {}).move, Move::Done);
    EXPECT_EQ(sessionBefore(9)->tookTooLong().move, Move::Done);
    EXPECT_EQ(sessionBefore(9)->arrived("500 what\r\n").move, Move::Done);
    EXPECT_EQ(sessionBefore(9)->arrived("what\r\n").move, Move::Done);
}

TEST(SecureSession, TellsOfHostsNotFoundAndNotTrusted)
{
    SecureSession away(facts(MailSecurity::StartTls));
    EXPECT_EQ(away.lost(platform::MailLoss::NotFound, QStringLiteral("No host.")).move,
              Move::Failed);
    EXPECT_EQ(away.failure(), QStringLiteral("The mail server mail.example.org can't be reached.\n"
                                             "No host.\nNothing was sent."));
    SecureSession strange(facts(MailSecurity::Tls));
    EXPECT_EQ(strange.lost(platform::MailLoss::NotTrusted, QStringLiteral("Expired.")).move,
              Move::Failed);
    EXPECT_EQ(strange.failure(), QStringLiteral("The mail server mail.example.org can't be "
                                                "trusted.\nExpired.\nNothing was sent."));
}

TEST(SecureSession, RefusesWhatIsNoReply)
{
    for (const QByteArray& odd :
         {QByteArray("hello\r\n"), QByteArray("2x0 hi\r\n"), QByteArray("220~hi\r\n"),
          QByteArray("\r\n"), QByteArray("220-a\r\n250 b\r\n"), QByteArray(1 << 20, 'x'),
          QByteArray("220 ") + QByteArray(1 << 20, 'x') + "\r\n",
          QByteArray("220-x\r\n").repeated(1000)}) {
        const std::unique_ptr<SecureSession> session = sessionBefore(0);
        EXPECT_EQ(session->arrived(odd).move, Move::Failed) << odd.left(20).toStdString();
    }
}

TEST(SecureSession, RefusesAServerThatSaysMoreThanItIsAsked)
{
    EXPECT_EQ(sessionBefore(0)->arrived("220 hi\r\n220 hi\r\n").move, Move::Failed);
    EXPECT_EQ(sessionBefore(3)->arrived("250 ok\r\n25").move, Move::Failed);
}

// The second of two replies would be taken for the answer to what is asked next.
TEST(SecureSession, TakesNoReplyForTheNextQuestion)
{
    for (std::size_t i = 0; !kTurns[i].reply.isNull(); ++i) {
        SCOPED_TRACE(kTurns[i].name);
        for (const QByteArray& more : {QByteArray("250 ok\r\n"), QByteArray("2")}) {
            const std::unique_ptr<SecureSession> session = sessionBefore(i);
            EXPECT_EQ(session->arrived(kTurns[i].reply + more).move, Move::Failed);
            EXPECT_TRUE(session->failure().endsWith(QStringLiteral("\nNothing was sent.")));
        }
    }
    EXPECT_EQ(sessionBefore(7)->arrived("250 ok\r\n").move, Move::Failed);
    EXPECT_EQ(sessionBefore(8)->arrived("250 taken\r\n250 ok\r\n").send, "QUIT\r\n");
}

TEST(SecureSession, TakesTheBeginOfAReplyForNoLaterOne)
{
    const std::unique_ptr<SecureSession> sending = sessionBefore(7);
    EXPECT_EQ(sending->arrived("25").move, Move::Wait);
    EXPECT_EQ(sending->messageSent().move, Move::Failed);
    SecureSession securing(facts(MailSecurity::StartTls));
    EXPECT_EQ(securing.arrived("220 hi\r\n").move, Move::Wait);
    EXPECT_EQ(securing.arrived(kHello).move, Move::Wait);
    EXPECT_EQ(securing.arrived("220 go\r\n").move, Move::Secure);
    EXPECT_EQ(securing.arrived("250-x").move, Move::Wait);
    EXPECT_EQ(securing.secured().move, Move::Failed);
}

TEST(SecureSession, TakesNoCodeThatServersDoNotHave)
{
    for (std::size_t i = 0; i < kTurns.size() - 1; ++i) {
        for (const char* const odd : {"000 ok\r\n", "199 ok\r\n", "600 ok\r\n"}) {
            const std::unique_ptr<SecureSession> session = sessionBefore(i);
            EXPECT_EQ(session->arrived(odd).move, Move::Failed) << kTurns[i].name << odd;
            EXPECT_EQ(session->failure().endsWith(QStringLiteral("Nothing was sent.")), i != 8);
        }
    }
}

TEST(SecureSession, TellsOfAServerThatAsksForMoreThanThereIs)
{
    const std::unique_ptr<SecureSession> session = sessionBefore(2);
    EXPECT_EQ(session->arrived("334 \r\n").send, "AG1lAHNlY3JldA==\r\n");
    EXPECT_EQ(session->arrived("334 \r\n").move, Move::Failed);
    EXPECT_EQ(session->failure(),
              QStringLiteral("The mail server mail.example.org refuses to log in the user me.\n"
                             "It asks for more than name and password.\nNothing was sent."));
}

TEST(SecureSession, TellsHowLargeAMessageMayBe)
{
    mail::SessionFacts large = facts(MailSecurity::Tls);
    large.user = {};
    large.messageSize = 1001;
    SecureSession session(large);
    EXPECT_EQ(session.secured().move, Move::Wait);
    EXPECT_EQ(session.arrived("220 hi\r\n").move, Move::Wait);
    EXPECT_EQ(session.arrived(kSecuredHello).move, Move::Failed);
    EXPECT_TRUE(session.failure().startsWith(
        QStringLiteral("The message has 1001 bytes, and the mail server mail.example.org takes "
                       "messages of at most 1000.")));
}

TEST(SecureSession, SendsToAddressesBeyondAsciiWhereTheServerTakesThem)
{
    for (const bool takes : {false, true}) {
        mail::SessionFacts unicode = facts(MailSecurity::Tls);
        unicode.user = {};
        unicode.recipients = {QStringLiteral("j\u00F6rg@example.org")};
        SecureSession session(unicode);
        EXPECT_EQ(session.secured().move, Move::Wait);
        EXPECT_EQ(session.arrived("220 hi\r\n").move, Move::Wait);
        const SecureSession::Step step =
            session.arrived(takes ? "250-x\r\n250 SMTPUTF8\r\n" : "250 x\r\n");
        EXPECT_EQ(step.move, takes ? Move::Wait : Move::Failed);
        EXPECT_EQ(step.send, takes ? "MAIL FROM:<me@example.org> SMTPUTF8\r\n" : "");
    }
}
