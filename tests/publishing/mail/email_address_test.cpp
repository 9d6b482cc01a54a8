#include "publishing/mail/email_address.h"

#include <gtest/gtest.h>

TEST(EmailAddress, WantsThreeCharactersBehindTheFirstDot)
{
    for (const char* good : {"a@b.com", "a@b.co.uk", " a@b.com ", "a@b.c.d", "a@.com", "a@@b.com",
                             "a b@c.info", "a@b.c d", "a@b.co\t"}) {
        EXPECT_TRUE(IsValidEmail(QString::fromLatin1(good))) << good;
    }
    for (const char* bad : {"a@b.nl", "@b.com", "a@b.", "ab.com", "", " ", "@", "a@b", "a.b@com",
                            "a@b.c ", " @b.com", "a@b.  c d"}) {
        EXPECT_FALSE(IsValidEmail(QString::fromLatin1(bad))) << bad;
    }
}

TEST(EmailAddress, DropsBlanksAndNoOtherSpace)
{
    EXPECT_EQ(mail::withoutBlanks("  a b  "), "a b");
    EXPECT_EQ(mail::withoutBlanks("   "), "");
    EXPECT_EQ(mail::withoutBlanks("\t a\n"), "\t a\n");
}
