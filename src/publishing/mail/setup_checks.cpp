#include "publishing/mail/setup_checks.h"

#include "publishing/mail/email_address.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>

namespace mail {

namespace {

using platform::BoxIcon;

struct Check {
    bool (*fails)(const SetupFields& fields);
    SetupComplaint complaint;
};

bool isEmpty(const QString& text)
{
    return withoutBlanks(text).isEmpty();
}

// In the order in which they are made, in the words that have always been shown.
constexpr std::array kChecks{
    Check{[](const SetupFields& fields) { return isEmpty(fields.server); },
          {"Error no name entered", "You must enter a vaild server name", BoxIcon::Critical}},
    Check{[](const SetupFields& fields) { return !isNumeric(fields.port); },
          {"Invaild Port Number", "Invaild port number", BoxIcon::Critical}},
    Check{[](const SetupFields& fields) { return isEmpty(fields.address); },
          {"No E-Mail name entered",
           "You must at least enter something for the E-Mail display name", BoxIcon::Information}},
    Check{[](const SetupFields& fields) { return !IsValidEmail(fields.address); },
          {"Invaild E-Mail Addesss", "Invaild E-Mail Address Entered", BoxIcon::Critical}},
};

} // namespace

const SetupComplaint* complaintAbout(const SetupFields& fields)
{
    const auto* const failed =
        std::ranges::find_if(kChecks, [&](const Check& check) { return check.fails(fields); });
    return failed == kChecks.end() ? nullptr : &failed->complaint;
}

bool isNumeric(const QString& text)
{
    static const QRegularExpression kNumber(
        QStringLiteral("\\A *[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+) *\\z"));
    return kNumber.match(text).hasMatch();
}

} // namespace mail
