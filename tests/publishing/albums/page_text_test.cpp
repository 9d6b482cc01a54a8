#include "publishing/albums/page_text.h"

#include "platform/os/paths.h"

#include <gtest/gtest.h>

using namespace albums;

namespace {

const QString kMixed = QString::fromUtf8(u8"é €\U0001F600");

} // namespace

TEST(PageText, IsLatin1WithReferencesForTheRest)
{
    EXPECT_EQ(textBytes(kMixed, Writing::Plain), "\xE9 &#8364;&#128512;");
    EXPECT_EQ(markupBytes(kMixed, Writing::Plain), "\xE9 &#8364;&#128512;");
    EXPECT_EQ(linkBytes(kMixed, Writing::Plain), "\xE9 &#8364;&#128512;");
}

TEST(PageText, IsAsciiWhereItIsEncoded)
{
    EXPECT_EQ(textBytes(kMixed, Writing::Encoded), "&#233; &#8364;&#128512;");
    EXPECT_EQ(markupBytes(kMixed, Writing::Encoded), "&#233; &#8364;&#128512;");
    EXPECT_EQ(linkBytes(kMixed, Writing::Encoded), "%C3%A9%20%E2%82%AC%F0%9F%98%80");
}

TEST(PageText, EscapesWhatIsATagOnlyWhereItIsEncoded)
{
    const QString text = QStringLiteral("\"a\" < b & c > d");
    EXPECT_EQ(textBytes(text, Writing::Plain), "\"a\" < b & c > d");
    EXPECT_EQ(textBytes(text, Writing::Encoded), "&quot;a&quot; &lt; b &amp; c &gt; d");
}

TEST(PageText, KeepsTheTagsOfMarkup)
{
    const QString markup = QStringLiteral("<a href=\"x?a=1&b=2\">y</a>");
    EXPECT_EQ(markupBytes(markup, Writing::Plain), markup.toLatin1());
    EXPECT_EQ(markupBytes(markup, Writing::Encoded), markup.toLatin1());
}

TEST(PageText, EncodesWhatAnAddressMisreads)
{
    const QString path = QStringLiteral("OriginalPics/#1_&_%41_'x'.htm");
    EXPECT_EQ(linkBytes(path, Writing::Plain), "OriginalPics/#1_&_%41_'x'.htm");
    EXPECT_EQ(linkBytes(path, Writing::Encoded), "OriginalPics/%231_%26_%2541_%27x%27.htm");
}

TEST(PageText, KeepsUndecodableBytesInLinksOnly)
{
    const QString name = platform::fromNative("caf\xE9.jpg");
    EXPECT_EQ(linkBytes(name, Writing::Encoded), "caf%E9.jpg");
    EXPECT_EQ(textBytes(name, Writing::Encoded), "caf&#65533;.jpg");
    EXPECT_EQ(textBytes(name, Writing::Plain), "caf&#65533;.jpg");
}
