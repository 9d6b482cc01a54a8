#include "publishing/mail/mail_encoding.h"
#include "publishing/mail/mime_message.h"
#include "support/temp_tree.h"

#include <QTimeZone>

namespace {

using mail::MailAddress;
using mail::MimeMessage;

const mail::MessageMark kMark{QDateTime(QDate(2026, 11, 2), QTime(3, 4, 5), QTimeZone(3600)),
                              "token"};

std::string wholeOf(MimeMessage& message)
{
    QByteArray whole;
    for (QByteArray piece = message.next(); !piece.isEmpty(); piece = message.next()) {
        EXPECT_LE(piece.size(), 64 * 1024);
        whole += piece;
    }
    return whole.toStdString();
}

QByteArray quoted(const QByteArray& text, qsizetype about = 1 << 20)
{
    mail::QuotedPrintable source(text);
    QByteArray whole;
    for (QByteArray piece = source.next(about); !piece.isEmpty(); piece = source.next(about)) {
        whole += piece;
    }
    return whole;
}

mail::MailDraft draft()
{
    return {QStringLiteral("me@example.org"),
            QStringLiteral("you@example.net, \"B, C\" <b@c.de>"),
            QStringLiteral("Gr\u00FC\u00DFe"),
            QStringLiteral("<p>.\n.a=b</p>"),
            {}};
}

const std::string kHead = "Date: Mon, 02 Nov 2026 03:04:05 +0100\r\n"
                          "From: me@example.org\r\n"
                          "To: you@example.net,\r\n"
                          " \"B, C\" <b@c.de>\r\n"
                          "Subject: =?UTF-8?B?R3LDvMOfZQ==?=\r\n"
                          "Message-ID: <token@example.org>\r\n"
                          "MIME-Version: 1.0\r\n";
const std::string kHtml = "Content-Type: text/html; charset=utf-8\r\n"
                          "Content-Transfer-Encoding: quoted-printable\r\n"
                          "\r\n"
                          "<p>.\r\n"
                          "=2Ea=3Db</p>\r\n";

} // namespace

TEST(MimeMessage, IsHeadAndHtml)
{
    MimeMessage message(draft(), QStringLiteral("me@example.org"), kMark);
    EXPECT_EQ(wholeOf(message), kHead + kHtml);
    EXPECT_FALSE(message.isBroken());
}

TEST(MimeMessage, HasThePictureBehindTheHtml)
{
    support::TempTree tree({{"a \"b\".jpg", std::string("\xFF\xD8") + std::string(60, 'x')}});
    mail::MailDraft with = draft();
    with.picture = tree.path("a \"b\".jpg");
    MimeMessage message(with, QStringLiteral("me@example.org"), kMark);
    EXPECT_EQ(wholeOf(message), kHead +
                                    "Content-Type: multipart/mixed;\r\n boundary=\"=_token\"\r\n"
                                    "\r\n--=_token\r\n" +
                                    kHtml +
                                    "\r\n--=_token\r\n"
                                    "Content-Type: image/jpeg\r\n"
                                    "Content-Transfer-Encoding: base64\r\n"
                                    "Content-Disposition: attachment; size=62;\r\n"
                                    " filename=\"a \\\"b\\\".jpg\"\r\n"
                                    "\r\n"
                                    "/9h4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4"
                                    "eHh4eHh4eHh4eHh4\r\n"
                                    "eHh4eHg=\r\n"
                                    "--=_token--\r\n");
}

TEST(MimeMessage, ReadsAPictureOfAnySizePieceByPiece)
{
    support::TempTree tree({{"large.bin", std::string(1000003, 'y')}});
    mail::MailDraft with = draft();
    with.picture = tree.path("large.bin");
    MimeMessage message(with, QStringLiteral("me@example.org"), kMark);
    const std::string whole = wholeOf(message);
    EXPECT_NEAR(double(whole.size()), double(message.size()), 100);
    EXPECT_NE(whole.find("application/octet-stream"), std::string::npos);
}

TEST(MimeMessage, TellsWhenThePictureCannotBeRead)
{
    support::TempTree tree({{"a.jpg", std::string(100000, 'x')}, {"folder/", ""}});
    mail::MailDraft with = draft();
    for (const char* const name : {"none.jpg", "folder"}) {
        with.picture = tree.path(name);
        EXPECT_TRUE(MimeMessage(with, QStringLiteral("me@example.org"), kMark).isBroken());
    }
    with.picture = tree.path("a.jpg");
    MimeMessage message(with, QStringLiteral("me@example.org"), kMark);
    ASSERT_TRUE(QFile::resize(with.picture, 50000));
    EXPECT_EQ(wholeOf(message).find("--=_token--"), std::string::npos);
    EXPECT_TRUE(message.isBroken());
}

TEST(MimeMessage, AFromFieldWithoutAddressIsAName)
{
    mail::MailDraft named = draft();
    named.from = QStringLiteral("J\u00F6rg\r\nBcc: x@y.de");
    MimeMessage message(named, QStringLiteral("me@example.org"), kMark);
    const std::string whole = wholeOf(message);
    EXPECT_NE(whole.find("\r\nFrom: =?UTF-8?B?SsO2cmcgIEJjYzogeEB5LmRl?= <me@example.org>\r\n"),
              std::string::npos)
        << whole;
}

TEST(MimeMessage, TellsWhetherItsHeadIsBeyondAscii)
{
    const auto needsUnicode = [](const char* from, const char* sender) {
        mail::MailDraft one = draft();
        one.from = QString::fromUtf8(from);
        return MimeMessage(one, QString::fromUtf8(sender), kMark).needsUnicode();
    };
    EXPECT_TRUE(needsUnicode("j\u00F6rg@example.org", "me@example.org"));
    EXPECT_FALSE(needsUnicode("J\u00F6rg <me@b\u00FCro.example>", "me@example.org"));
    EXPECT_FALSE(needsUnicode("J\u00F6rg", "me@example.org"));
    EXPECT_TRUE(needsUnicode("me", "j\u00F6rg@example.org"));
}

TEST(MimeMessage, CountsTheTextAsItTravels)
{
    for (const char* const text : {"\u20AC\u00FC", "<p style=\"a=b\">=</p>", "plain text "}) {
        mail::MailDraft large = draft();
        large.html = QString::fromUtf8(text).repeated(5000);
        MimeMessage message(large, QStringLiteral("me@example.org"), kMark);
        const double size = double(message.size());
        EXPECT_NEAR(size, double(wholeOf(message).size()), size / 50) << text;
    }
}

TEST(MimeMessage, HasNoLongHeadLines)
{
    mail::MailDraft wide = draft();
    wide.from = QString(3000, u'n') + QStringLiteral(" <me@example.org>");
    wide.to = QStringLiteral("\"%1\" <a@b.org>, %2 <%3@%4.org>")
                  .arg(QStringLiteral("a \\").repeated(900), QStringLiteral("\u20AC").repeated(300),
                       QString(64, u'l'), QString(180, u'd'));
    wide.subject = QString(2000, u'\u20AC');
    MimeMessage message(wide, QStringLiteral("me@example.org"), kMark);
    const QByteArray whole = QByteArray::fromStdString(wholeOf(message));
    for (const QByteArray& line : whole.left(whole.indexOf("\r\n\r\n")).split('\n')) {
        EXPECT_LE(line.size(), line.contains("=?") ? 77 : 300) << line.toStdString();
    }
}

TEST(HeadWords, AreFoldedAndEncodedInShortLines)
{
    EXPECT_EQ(mail::headWords(QStringLiteral("Hello you")), "Hello you");
    EXPECT_EQ(mail::headWords(QStringLiteral("a\r\nBcc: b")), "a  Bcc: b");
    EXPECT_EQ(mail::headWords(QStringLiteral("=?x?=")), "=?UTF-8?B?PT94Pz0=?=");
    const QString word = QStringLiteral("\u20AC\U0001F600abc ");
    for (const QString& text : {word.repeated(200), QStringLiteral("abc ").repeated(900),
                                QString(3000, u'x'), u'a' + QString(3000, u' ') + u'b'}) {
        for (const QByteArray& line : mail::headWords(text).split('\n')) {
            EXPECT_LT(line.size(), 80) << line.toStdString();
        }
    }
    EXPECT_EQ(mail::headWords(QStringLiteral("abc ").repeated(50)).replace("\r\n", ""),
              QByteArray("abc ").repeated(50).trimmed());
}

TEST(HeadParameter, IsEncodedBeyondAscii)
{
    EXPECT_EQ(mail::headParameter("filename", QStringLiteral("a b.jpg")), "filename=\"a b.jpg\"");
    EXPECT_EQ(mail::headParameter("filename", QStringLiteral("\u00FC'\".jpg")),
              "filename*=UTF-8''%C3%BC%27%22.jpg");
}

TEST(QuotedPrintable, KeepsLinesShortAndTheirEndsSafe)
{
    EXPECT_EQ(quoted(""), "");
    EXPECT_EQ(quoted("a \nb\t\r\nc \r.\nFrom x\n\n"),
              "a=20\r\nb=09\r\nc=20\r\n=2E\r\n=46rom x\r\n\r\n");
    EXPECT_EQ(quoted("a="), "a=3D\r\n");
    EXPECT_EQ(quoted("\xC3\xBC\x01\x7F"), "=C3=BC=01=7F\r\n");
    for (const qsizetype about : {1, 7, 1000}) {
        const QByteArray text =
            QByteArray(200, '.') + QByteArray(100, '\xE4') + QByteArray(300, 'a');
        QByteArray back;
        for (QByteArray line : quoted(text, about).split('\n')) {
            EXPECT_LE(line.size(), 77);
            EXPECT_FALSE(line.startsWith('.'));
            line.replace("\r", "");
            back += line.endsWith('=') ? line.chopped(1) : line;
        }
        EXPECT_EQ(back.replace("=E4", "\xE4").replace("=2E", "."), text);
    }
}

TEST(MailAddresses, AreSplitAtCommas)
{
    const std::vector<MailAddress> expected{
        {{}, QStringLiteral("a@b.org")},
        {QStringLiteral("C, D"), QStringLiteral("c@d.org")},
        {QStringLiteral("E F"), QStringLiteral("e@f.org")},
    };
    EXPECT_EQ(mail::addressesIn(QStringLiteral(" a@b.org ,, \"C, D\" <c@d.org>,E F < e@f.org >, ")),
              expected);
    EXPECT_TRUE(mail::addressesIn(QStringLiteral(" , ")).empty());
}

TEST(MailAddresses, TellWhetherTheyCanBeSentTo)
{
    EXPECT_TRUE(mail::canBeSentTo(QStringLiteral("a@b")));
    EXPECT_TRUE(mail::canBeSentTo(QStringLiteral("a@") + QString(252, u'b')));
    EXPECT_FALSE(mail::canBeSentTo(QStringLiteral("a@") + QString(253, u'b')));
    for (const char* const odd :
         {"", "a", "@b", "a@", "a b@c", "a@b>", "<a@b", "a@b\r\nRSET", "a@b,c@d",
          "a@\xC2\xA0"
          "b"}) {
        EXPECT_FALSE(mail::canBeSentTo(QString::fromUtf8(odd))) << odd;
    }
}
