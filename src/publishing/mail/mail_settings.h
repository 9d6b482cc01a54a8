#pragma once

#include <QByteArray>
#include <QString>

namespace mail {

enum class MailSecurity {
    None,
    StartTls,
    Tls,
    Unknown, // what is stored is none of the others; nothing is sent
};

// What a sending needs to know. All but the last two are those of the classic client.
struct MailSettings {
    QString MailServerName;
    qint16 MailServerPort = 0;
    QString MailFromAddress;    // the sender that the server is told
    QString MailRecipient;      // of the sending under way
    QByteArray MailMessageText; // the same one's head and body, with the line that ends it
    MailSecurity security = MailSecurity::None;
    QString user; // logs in where it isn't empty
};

// Reads server, port, sender, security and user from config.ini. A key that is missing reads as
// "ERROR" (the user as empty, the security as None), and a port without digits as 0. A port beyond
// 16 bits keeps the value before, and a security that can't be read is Unknown. In classic mode
// there is no security and no user.
void readMailSettings(MailSettings& settings);

} // namespace mail
