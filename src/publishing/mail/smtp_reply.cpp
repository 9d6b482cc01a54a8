#include "publishing/mail/smtp_reply.h"

#include "publishing/mail/mail_message.h"

#include <utility>

namespace mail {

namespace {

// Far above what servers say, and far below what would hurt.
constexpr qsizetype kLongestLine = 8192; // bytes
constexpr qsizetype kMostLines = 256;
constexpr qsizetype kLongestWords = 400; // characters

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// A code from 200 to 599, then a blank, a hyphen or nothing.
bool isReplyLine(const QByteArray& line)
{
    return line.size() >= 3 && line[0] >= '2' && line[0] <= '5' && isDigit(line[1]) &&
           isDigit(line[2]) && (line.size() == 3 || line[3] == ' ' || line[3] == '-');
}

} // namespace

QString SmtpReply::words() const
{
    const QString text = onOneLine(QString::fromUtf8(lines.join(' '))).simplified();
    const bool cut = text.size() > kLongestWords;
    return QString::number(code) + u' ' + text.left(kLongestWords) +
           (cut ? QStringLiteral("\u2026") : QString());
}

void ReplyReader::add(const QByteArray& bytes)
{
    if (!m_broken) {
        m_bytes += bytes;
    }
}

std::optional<SmtpReply> ReplyReader::next()
{
    while (const std::optional<QByteArray> line = takeLine()) {
        if (!takesLine(*line)) {
            m_broken = true;
            return std::nullopt;
        }
        if (line->size() == 3 || line->at(3) == ' ') {
            return std::exchange(m_reply, {});
        }
    }
    return std::nullopt;
}

std::optional<QByteArray> ReplyReader::takeLine()
{
    const qsizetype end = m_bytes.indexOf('\n');
    m_broken = m_broken || (end < 0 ? m_bytes.size() : end) > kLongestLine;
    if (m_broken || end < 0) {
        return std::nullopt;
    }
    QByteArray line = m_bytes.left(end);
    m_bytes.remove(0, end + 1);
    if (line.endsWith('\r')) {
        line.chop(1);
    }
    return line;
}

bool ReplyReader::takesLine(const QByteArray& line)
{
    if (!isReplyLine(line) || m_reply.lines.size() == kMostLines) {
        return false;
    }
    const int code = line.left(3).toInt();
    if (!m_reply.lines.isEmpty() && code != m_reply.code) {
        return false;
    }
    m_reply.code = code;
    m_reply.lines.append(line.mid(4));
    return true;
}

} // namespace mail
