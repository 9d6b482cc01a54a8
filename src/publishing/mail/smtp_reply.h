#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <optional>

namespace mail {

// A reply of a mail server, with all its lines.
struct SmtpReply {
    int code = 0;
    QByteArrayList lines; // what stands behind the code and its blank or hyphen

    // For people: code and text on one line, cut where a server talks without end.
    [[nodiscard]] QString words() const;
};

// Puts replies together from bytes that arrive in any pieces.
class ReplyReader {
public:
    void add(const QByteArray& bytes);
    // The first complete reply, taken out; nothing while there is none, or once isBroken().
    [[nodiscard]] std::optional<SmtpReply> next();
    // What came is no reply: a line without a code, two codes in one reply, or no end of it.
    [[nodiscard]] bool isBroken() const { return m_broken; }
    // Nothing is left over, not even the begin of a reply.
    [[nodiscard]] bool isEmpty() const { return m_bytes.isEmpty() && m_reply.lines.isEmpty(); }

private:
    [[nodiscard]] std::optional<QByteArray> takeLine();
    [[nodiscard]] bool takesLine(const QByteArray& line);

    QByteArray m_bytes; // behind the last complete line
    SmtpReply m_reply;  // the lines so far of one that goes on
    bool m_broken = false;
};

} // namespace mail
