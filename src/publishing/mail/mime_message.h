#pragma once

#include "publishing/mail/mail_addresses.h"
#include "publishing/mail/mail_message.h"

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <deque>
#include <functional>
#include <vector>

namespace mail {

// What makes a message one of its own.
struct MessageMark {
    QDateTime written;
    QByteArray token; // letters and digits that no other message has
};

// A whole message of seven-bit lines, but for such addresses as needsUnicode() tells of. It is told
// piece by piece, with the picture read as it goes. No line begins with a dot, and each ends with
// CR LF.
class MimeMessage {
public:
    // The sender's address stands in the head where the From field holds none.
    MimeMessage(const MailDraft& draft, const QString& senderAddress, const MessageMark& mark);
    MimeMessage(const MimeMessage&) = delete;
    MimeMessage& operator=(const MimeMessage&) = delete;

    // The next piece, at most 64 KB; empty at the end, and when isBroken().
    [[nodiscard]] QByteArray next();
    // The picture can't be read, or not to its end.
    [[nodiscard]] bool isBroken() const { return m_broken; }
    // The head has an address that isn't ASCII, which only some servers take.
    [[nodiscard]] bool needsUnicode() const { return m_needsUnicode; }
    // Bytes in all; that of the HTML is near the truth, the rest exact.
    [[nodiscard]] qint64 size() const { return m_size; }

private:
    using Source = std::function<QByteArray()>;

    void addText(const QByteArray& text);
    void addHtml(const QString& html);
    void addPicture();
    [[nodiscard]] QByteArray nextOfPicture();

    std::deque<Source> m_sources;
    QFile m_picture;
    qint64 m_leftOfPicture = 0;
    qint64 m_size = 0;
    bool m_needsUnicode = false;
    bool m_broken = false;
};

} // namespace mail
