#pragma once

#include "platform/desktop/dialogs.h"

#include <QString>

// What the mail setup asks of its fields.
namespace mail {

struct SetupFields {
    QString server;
    QString port;
    QString address; // the sender's
};

struct SetupComplaint {
    const char* title;
    const char* text;
    platform::BoxIcon icon;
};

// The first thing that is wrong with the fields; null when they can be stored.
[[nodiscard]] const SetupComplaint* complaintAbout(const SetupFields& fields);

// Blanks around it, a sign, digits and one dot: "25", " 25.5", "-1."
[[nodiscard]] bool isNumeric(const QString& text);

} // namespace mail
