#include "publishing/mail/mail_settings.h"

#include "support/memory_config_store.h"

#include <gtest/gtest.h>

namespace {

using mail::MailSecurity;

mail::MailSettings readFrom(const std::map<QString, QString>& values, qint16 portBefore = 0)
{
    support::MemoryConfigStore store;
    store.values = values;
    mail::MailSettings settings;
    settings.MailServerPort = portBefore;
    mail::readMailSettings(settings);
    return settings;
}

qint16 portFrom(const char* text, qint16 before = 0)
{
    return readFrom({{QStringLiteral("Serverport"), QString::fromLatin1(text)}}, before)
        .MailServerPort;
}

} // namespace

TEST(MailSettings, AreReadByTheirKeys)
{
    const mail::MailSettings settings =
        readFrom({{QStringLiteral("Servername"), QStringLiteral("mail.example.org")},
                  {QStringLiteral("Serverport"), QStringLiteral("25")},
                  {QStringLiteral("Mailtext"), QStringLiteral("me@example.org")},
                  {QStringLiteral("MailSecurity"), QStringLiteral("2")},
                  {QStringLiteral("MailUser"), QStringLiteral("me")}});
    EXPECT_EQ(settings.MailServerName, QStringLiteral("mail.example.org"));
    EXPECT_EQ(settings.MailServerPort, 25);
    EXPECT_EQ(settings.MailFromAddress, QStringLiteral("me@example.org"));
    EXPECT_EQ(settings.security, MailSecurity::Tls);
    EXPECT_EQ(settings.user, QStringLiteral("me"));
}

TEST(MailSettings, MissingKeysReadAsError)
{
    const mail::MailSettings settings = readFrom({});
    EXPECT_EQ(settings.MailServerName, QStringLiteral("ERROR"));
    EXPECT_EQ(settings.MailServerPort, 0);
    EXPECT_EQ(settings.MailFromAddress, QStringLiteral("ERROR"));
    EXPECT_EQ(settings.security, MailSecurity::None);
    EXPECT_TRUE(settings.user.isEmpty());
}

TEST(MailSettings, ASecurityThatCannotBeReadIsNotNone)
{
    const auto securityOf = [](const char* text) {
        return readFrom({{QStringLiteral("MailSecurity"), QString::fromLatin1(text)}}).security;
    };
    EXPECT_EQ(securityOf("0"), MailSecurity::None);
    EXPECT_EQ(securityOf("1"), MailSecurity::StartTls);
    for (const char* const odd : {"TLS", "3", "01", "-1", "", " ", "None"}) {
        EXPECT_EQ(securityOf(odd), MailSecurity::Unknown) << odd;
    }
}

TEST(MailSettings, PortsAreRoundedTo16Bits)
{
    EXPECT_EQ(portFrom("25.5"), 26);
    EXPECT_EQ(portFrom("24.5"), 24);
    EXPECT_EQ(portFrom("587 or so"), 587);
    EXPECT_EQ(portFrom("32767"), 32767);
    EXPECT_EQ(portFrom("0", 25), 0);
    EXPECT_EQ(portFrom("x", 25), 0);
    EXPECT_EQ(portFrom("ERROR", 25), 0);
}

TEST(MailSettings, APortThatDoesNotFitKeepsTheOneBefore)
{
    EXPECT_EQ(portFrom("40000"), 0);
    EXPECT_EQ(portFrom("40000", 25), 25);
    EXPECT_EQ(portFrom("-40000", 25), 25);
    EXPECT_EQ(portFrom("1e300", 25), 25);
}

TEST(MailSettings, ClassicModeKnowsNoSecurity)
{
    for (const char* const security : {"1", "TLS"}) {
        const mail::MailSettings settings =
            readFrom({{QStringLiteral("Classic"), QStringLiteral("1")},
                      {QStringLiteral("MailSecurity"), QString::fromLatin1(security)},
                      {QStringLiteral("MailUser"), QStringLiteral("me")}});
        EXPECT_EQ(settings.security, MailSecurity::None);
        EXPECT_TRUE(settings.user.isEmpty());
    }
}
