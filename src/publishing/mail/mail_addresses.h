#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace mail {

struct MailAddress {
    QString name;    // before the angle brackets; may be empty
    QString address; // "local@domain"
    bool operator==(const MailAddress&) const = default;
};

// The addresses of a field, separated by commas: "a@b.org" or "Name <a@b.org>", the name in double
// quotes where it holds a comma. Entries of blanks alone are none.
[[nodiscard]] std::vector<MailAddress> addressesIn(const QString& field);

// Something on both sides of an "@", without what would end a command's address before its end, and
// no longer than servers take.
[[nodiscard]] bool canBeSentTo(const QString& address);

// As commands carry it: the domain in ASCII, the rest in UTF-8.
[[nodiscard]] QByteArray onTheWire(const QString& address);

} // namespace mail
