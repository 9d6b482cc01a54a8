#include "publishing/mail/smtp_login.h"

#include <gtest/gtest.h>

namespace {

using mail::bestLogin;

const mail::MailUser kMe{QStringLiteral("user"), QStringLiteral("pencil")};

// The examples that the two standards print.
struct Proof {
    const char* name;
    QByteArray nonce;
    QByteArray question;
    QByteArray answer;
    QByteArray last;
};

const std::vector<Proof> kProofs{
    {"SCRAM-SHA-1", "fyko+d2lbbFgONRv9qkxdawL",
     "r=fyko+d2lbbFgONRv9qkxdawL3rfcNHYJY1ZVvWVs7j,s=QSXCR+Q6sek8bf92,i=4096",
     "c=biws,r=fyko+d2lbbFgONRv9qkxdawL3rfcNHYJY1ZVvWVs7j,p=v0X8v3Bz2T0CJGbJQyF0X+HI4Ts=",
     "v=rmF9pqV8S7suAoZWja4dJRkFsKQ="},
    {"SCRAM-SHA-256", "rOprNGfwEbeRWgbNEkqO",
     "r=rOprNGfwEbeRWgbNEkqO%hvYDpWUa2RaTCAfuxFIlj)hNlF$k0,s=W22ZaJ0SNY7soEsUEjb6gQ==,i=4096",
     "c=biws,r=rOprNGfwEbeRWgbNEkqO%hvYDpWUa2RaTCAfuxFIlj)hNlF$k0,"
     "p=dHzbZapWIk4jUhN+Ute9ytag9zjfMHgsqmmiz7AndVQ=",
     "v=6rriTRBi23WpRR/wtup+mMhUZUn/dB5nLTJRsjl95G4="},
};

} // namespace

TEST(SmtpLogin, ProvesThePasswordAndHasTheServerProveIt)
{
    for (const Proof& row : kProofs) {
        SCOPED_TRACE(row.name);
        const auto login = bestLogin({row.name}, kMe, row.nonce);
        EXPECT_EQ(login->command(),
                  QByteArray("AUTH ") + row.name + ' ' + ("n,,n=user,r=" + row.nonce).toBase64());
        EXPECT_EQ(login->answer(row.question), row.answer);
        EXPECT_FALSE(login->isProved());
        EXPECT_EQ(login->answer(row.last), QByteArray());
        EXPECT_TRUE(login->isProved());
    }
}

TEST(SmtpLogin, BelievesNoServerThatKnowsNothing)
{
    for (const Proof& row : kProofs) {
        const auto login = bestLogin({row.name}, kMe, row.nonce);
        EXPECT_TRUE(login->answer(row.question));
        EXPECT_FALSE(login->answer("v=AAAA"));
        EXPECT_FALSE(login->isProved());
    }
}

TEST(SmtpLogin, AnswersNoOddQuestion)
{
    for (const char* const odd :
         {"", "x", "r=nonce1", "r=nonce1,s=QQ==,i=", "r=nonce1,s=QQ==,i=0", "r=nonce1,s=QQ==,i=-1",
          "r=nonce1,s=QQ==,i=2000000000", "r=nonce1,s=QQ==,i=100001", "r=nonce,s=QQ==,i=1",
          "r=other1,s=QQ==,i=1", "r=nonce1,s=,i=1", "m=x,r=nonce1,s=QQ==,i=1"}) {
        EXPECT_FALSE(bestLogin({"SCRAM-SHA-256"}, kMe, "nonce")->answer(odd)) << odd;
    }
}

TEST(SmtpLogin, EscapesTheNameAndPreparesIt)
{
    const mail::MailUser odd{QStringLiteral("a=b,c\uFF21"), QStringLiteral("x")};
    EXPECT_EQ(bestLogin({"SCRAM-SHA-1"}, odd, "n")->command(),
              "AUTH SCRAM-SHA-1 " + QByteArray("n,,n=a=3Db=2CcA,r=n").toBase64());
}

TEST(SmtpLogin, TakesTheBestWayOfThoseOffered)
{
    const auto commandOf = [](const QByteArrayList& offered) {
        return bestLogin(offered, kMe, "n")->command().left(13);
    };
    EXPECT_EQ(commandOf({"LOGIN", "PLAIN", "SCRAM-SHA-1", "SCRAM-SHA-256"}), "AUTH SCRAM-SH");
    EXPECT_EQ(commandOf({"LOGIN", "PLAIN"}), "AUTH PLAIN AH");
    EXPECT_EQ(commandOf({"CRAM-MD5", "LOGIN"}), "AUTH LOGIN");
    EXPECT_EQ(bestLogin({"CRAM-MD5", "XOAUTH2", ""}, kMe, "n"), nullptr);
}

TEST(SmtpLogin, TellsNameAndPasswordOnceEach)
{
    const auto login = bestLogin({"LOGIN"}, kMe, "n");
    EXPECT_EQ(login->answer("Username:"), "user");
    EXPECT_EQ(login->answer("Password:"), "pencil");
    EXPECT_FALSE(login->answer("Again:"));
    const auto plain = bestLogin({"PLAIN"}, kMe, "n");
    EXPECT_EQ(plain->answer(""), QByteArray("\0user\0pencil", 12));
    EXPECT_FALSE(plain->answer(""));
}
