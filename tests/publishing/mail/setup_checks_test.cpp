#include "publishing/mail/setup_checks.h"

#include <gtest/gtest.h>

using namespace mail;
using platform::BoxIcon;

namespace {

const SetupFields kGood{"mail.example.com", "25", "me@example.com"};

void expectComplaint(const SetupFields& fields, const char* title, const char* text, BoxIcon icon)
{
    const SetupComplaint* complaint = complaintAbout(fields);
    ASSERT_NE(complaint, nullptr) << title;
    EXPECT_STREQ(complaint->title, title);
    EXPECT_STREQ(complaint->text, text);
    EXPECT_EQ(complaint->icon, icon) << title;
}

} // namespace

TEST(SetupChecks, TellTheFirstFaultInTheirWords)
{
    SetupFields fields{"  ", "x", " "};
    expectComplaint(fields, "Error no name entered", "You must enter a vaild server name",
                    BoxIcon::Critical);
    fields.server = kGood.server;
    expectComplaint(fields, "Invaild Port Number", "Invaild port number", BoxIcon::Critical);
    fields.port = kGood.port;
    expectComplaint(fields, "No E-Mail name entered",
                    "You must at least enter something for the E-Mail display name",
                    BoxIcon::Information);
    fields.address = "me@example.nl";
    expectComplaint(fields, "Invaild E-Mail Addesss", "Invaild E-Mail Address Entered",
                    BoxIcon::Critical);
    fields.address = kGood.address;
    EXPECT_EQ(complaintAbout(fields), nullptr);
}

TEST(SetupChecks, NameAnEmptyPortBeforeAnEmptyAddress)
{
    expectComplaint({"mail.example.com", "", ""}, "Invaild Port Number", "Invaild port number",
                    BoxIcon::Critical);
}

TEST(SetupChecks, TakeNumbersWithSignAndFraction)
{
    for (const char* number : {"25", " 25 ", "25.5", "+1", "-1.", ".5", "0", "40000", "007"}) {
        EXPECT_TRUE(isNumeric(QString::fromLatin1(number))) << number;
    }
    for (const char* text : {"", " ", "x", "25x", "2 5", ".", "+", "1.2.3", "1e3", "&H10", "1,5",
                             "25\n", "\t25", "--1"}) {
        EXPECT_FALSE(isNumeric(QString::fromLatin1(text))) << text;
    }
    EXPECT_FALSE(isNumeric(QStringLiteral("\u0662\u0665")));
}
