#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <memory>
#include <optional>

namespace mail {

struct MailUser {
    QString name;
    QString password;
};

// One way of telling a server who one is, from the command to the last answer.
class SmtpLogin {
public:
    virtual ~SmtpLogin() = default;

    [[nodiscard]] virtual QByteArray command() const = 0; // without its line end
    // What the server's question, decoded, is answered with, not yet encoded. Nothing: this is not
    // what a server asks that knows the password.
    [[nodiscard]] virtual std::optional<QByteArray> answer(const QByteArray& question) = 0;
    // Whether the server's yes may be believed.
    [[nodiscard]] virtual bool isProved() const { return true; }
};

// The best way of those that a server offers, which are in capitals; null where none is known. The
// nonce is printable, has no comma, and is another one each time.
[[nodiscard]] std::unique_ptr<SmtpLogin> bestLogin(const QByteArrayList& offered,
                                                   const MailUser& user, const QByteArray& nonce);

} // namespace mail
