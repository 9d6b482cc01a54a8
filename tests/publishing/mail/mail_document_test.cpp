#include "publishing/mail/mail_document.h"

#include <gtest/gtest.h>

using namespace mail;

namespace {

const QByteArray kWhole("[Quillpost Sender Beta 1 Do not edit below this line]\r\n"
                        "[MailFrom]to@example.com\r\n"
                        "[MAILTO]from@example.org\r\n"
                        "[SUBJECT]The lake\r\n"
                        "[MAILDATA]<p>One</p>\n<p>Two</p>\x19\r\n");

} // namespace

TEST(MailDocument, HasItsFiveRecordsByteForByte)
{
    EXPECT_EQ(
        documentBytes({"to@example.com", "from@example.org", "The lake", "<p>One</p>\n<p>Two</p>"}),
        kWhole);
}

TEST(MailDocument, DropsTheBlanksAroundItsFieldsAndNothingElse)
{
    EXPECT_EQ(documentBytes({"  to@example.com ", " from@example.org", " \tThe lake\t ", " x "}),
              QByteArray("[Quillpost Sender Beta 1 Do not edit below this line]\r\n"
                         "[MailFrom]to@example.com\r\n"
                         "[MAILTO]from@example.org\r\n"
                         "[SUBJECT]\tThe lake\t\r\n"
                         "[MAILDATA] x \x19\r\n"));
}

TEST(MailDocument, ReadsEachAddressFromWhereItWasWritten)
{
    const DocumentRecords found = readDocument(kWhole);
    EXPECT_EQ(found.to, "to@example.com");
    EXPECT_EQ(found.from, "from@example.org");
    EXPECT_EQ(found.subject, "The lake");
    EXPECT_EQ(found.body, "<p>One</p>\n<p>Two</p>");
}

TEST(MailDocument, KeepsLinesAndAnyAlphabet)
{
    const QString body = QStringLiteral("<p>\u00e9\u4e2d\U0001F600</p>\r\n\r\n<p>.</p>\n");
    const DocumentRecords found =
        readDocument(documentBytes({"t@x.com", "f@x.com", QStringLiteral("\u0417"), body}));
    EXPECT_EQ(found.subject, QStringLiteral("\u0417"));
    EXPECT_EQ(found.body, body);
}

TEST(MailDocument, KeepsBytesThatAreNoText)
{
    QByteArray bytes = kWhole;
    bytes.replace("lake", "l\xE4ke");
    const DocumentRecords found = readDocument(bytes);
    ASSERT_TRUE(found.subject && found.body);
    EXPECT_EQ(documentBytes({*found.to, *found.from, *found.subject, *found.body}), bytes);
}

TEST(MailDocument, CutsTheBodyAtItsEndByte)
{
    const DocumentRecords found =
        readDocument(documentBytes({"t", "f", "s", QStringLiteral("before\u0019behind")}));
    EXPECT_EQ(found.body, "before");
}

TEST(MailDocument, TakesTheFirstOfTwoMarkers)
{
    const DocumentRecords found =
        readDocument(documentBytes({"t", "f", "a [SUBJECT] b [MAILDATA] c", "body"}));
    EXPECT_EQ(found.subject, "a [SUBJECT] b [MAILDATA] c");
    EXPECT_EQ(found.body, " c\r\n[MAILDATA]body");
}

TEST(MailDocument, StopsAtTheFirstRecordThatIsMissing)
{
    const auto without = [](const char* marker) {
        return readDocument(QByteArray(kWhole).replace(marker, "[x]"));
    };
    EXPECT_FALSE(without("[MailFrom]").to || without("[MailFrom]").from);
    EXPECT_TRUE(without("[MAILTO]").to);
    EXPECT_FALSE(without("[MAILTO]").from || without("[MAILTO]").subject);
    EXPECT_TRUE(without("[SUBJECT]").from);
    EXPECT_FALSE(without("[SUBJECT]").subject || without("[SUBJECT]").body);
    EXPECT_TRUE(without("[MAILDATA]").subject);
    EXPECT_FALSE(without("[MAILDATA]").body);
    EXPECT_FALSE(without("\x19").body);
}

TEST(MailDocument, TellsItsMarkersByTheirCase)
{
    EXPECT_FALSE(readDocument(QByteArray(kWhole).replace("[MailFrom]", "[MAILFROM]")).to);
    EXPECT_FALSE(readDocument(QByteArray(kWhole).replace("[SUBJECT]", "[Subject]")).subject);
}

TEST(MailDocument, NeedsNoFirstLine)
{
    EXPECT_EQ(readDocument(kWhole.mid(kWhole.indexOf("[MailFrom]"))).body,
              "<p>One</p>\n<p>Two</p>");
}

TEST(MailDocument, EndsAFieldAtALoneLineEnd)
{
    EXPECT_EQ(readDocument(QByteArray(kWhole).replace("The lake", "The\nlake")).subject, "The");
    EXPECT_EQ(readDocument(QByteArray(kWhole).replace("The lake", "The\rlake")).subject, "The");
    EXPECT_EQ(readDocument(QByteArray(kWhole).replace("The lake", "\nlake")).subject, "");
    EXPECT_FALSE(readDocument("[MailFrom]to@example.com\n[MAILTO]x\n").to);
}

TEST(MailDocument, FindsNothingInAnEmptyFile)
{
    EXPECT_FALSE(readDocument({}).to);
    EXPECT_FALSE(readDocument("\r\n").to);
    EXPECT_FALSE(readDocument("[MailFrom]").to);
}

TEST(MailDocument, ReadsNulBytesLikeAnyOther)
{
    QByteArray bytes = kWhole;
    bytes.replace("The lake", QByteArrayView("a\0b", 3));
    bytes.prepend(QByteArrayView("\0\0", 2));
    const DocumentRecords found = readDocument(bytes);
    EXPECT_EQ(found.subject, QString::fromLatin1("a\0b", 3));
    EXPECT_EQ(found.body, "<p>One</p>\n<p>Two</p>");
}

TEST(MailDocument, ReadsAHundredMegabytes)
{
    constexpr int kSize = 100 << 20;
    const QByteArray head("[MailFrom]t\r\n[MAILTO]f\r\n[SUBJECT]s\r\n[MAILDATA]");
    const DocumentRecords found = readDocument(head + QByteArray(kSize, 'x') + "\x19\r\n");
    ASSERT_TRUE(found.body);
    EXPECT_EQ(found.body->size(), kSize);
    EXPECT_FALSE(readDocument(head + QByteArray(kSize, 'x')).body);
}
