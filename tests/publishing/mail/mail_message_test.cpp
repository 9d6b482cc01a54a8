#include "publishing/mail/mail_message.h"

#include <gtest/gtest.h>

namespace {

using mail::MailDraft;
using mail::mailMessageText;

const std::string kHead = "From: me@example.org\r\n"
                          "To: you@example.net\r\n"
                          "Subject: Hello\r\n"
                          "MIME-Version: 1.0\r\n"
                          "Content-Type: text/html; charset=utf-8\r\n"
                          "Content-Transfer-Encoding: 8bit\r\n"
                          "\r\n";

MailDraft draftWith(const QString& html)
{
    return {QStringLiteral("me@example.org"),
            QStringLiteral("you@example.net"),
            QStringLiteral("Hello"),
            html,
            {}};
}

std::string bodyOf(const QString& html)
{
    const std::string text = mailMessageText(draftWith(html)).toStdString();
    EXPECT_EQ(text.substr(0, kHead.size()), kHead);
    return text.substr(kHead.size());
}

} // namespace

TEST(MailMessage, IsHeadEmptyLineBodyAndTheDotThatEndsIt)
{
    EXPECT_EQ(bodyOf(QStringLiteral("<p>Hi</p>")), "<p>Hi</p>\r\n.");
}

TEST(MailMessage, EndsWithTheDotWithoutAnyBodyToo)
{
    EXPECT_EQ(bodyOf({}), ".");
}

TEST(MailMessage, EveryKindOfLineEndBecomesOne)
{
    EXPECT_EQ(bodyOf(QStringLiteral("a\nb\rc\r\nd\n\n\r\r\ne\r\n")),
              "a\r\nb\r\nc\r\nd\r\n\r\n\r\n\r\ne\r\n.");
}

TEST(MailMessage, DotsThatBeginALineAreDoubled)
{
    EXPECT_EQ(bodyOf(QStringLiteral(".\n..a\nb.\n.\r\n.")), "..\r\n...a\r\nb.\r\n..\r\n..\r\n.");
}

TEST(MailMessage, IsUtf8)
{
    EXPECT_EQ(bodyOf(QStringLiteral("\u00FC \u20AC")), "\xC3\xBC \xE2\x82\xAC\r\n.");
}

TEST(MailMessage, LargeLinesComeThroughWhole)
{
    const qsizetype megabyte = 1 << 20;
    const QString line = QString(megabyte - 1, u'a') + QStringLiteral("\U0001F600") +
                         QString(2 * megabyte, u'.') + QString(megabyte, u'\u00FC');
    EXPECT_TRUE(bodyOf(line + QStringLiteral("\r\n.") + line) ==
                line.toStdString() + "\r\n.." + line.toStdString() + "\r\n.");
}

TEST(MailMessage, FieldsAddNoHeadLines)
{
    MailDraft draft = draftWith(QStringLiteral("x"));
    draft.subject = QStringLiteral("a\r\nBcc: b@c.de\nX: 1\u2028Y\u0085Z\vA\fB");
    draft.to = QStringLiteral("you@example.net\r\n\r\nbody");
    draft.from = QStringLiteral("me\rBcc: x");
    const std::string text = mailMessageText(draft).toStdString();
    EXPECT_EQ(text.substr(0, text.find("MIME")), "From: me Bcc: x\r\n"
                                                 "To: you@example.net    body\r\n"
                                                 "Subject: a  Bcc: b@c.de X: 1 Y Z A B\r\n");
}
