#include "publishing/mail/mail_message.h"

#include <algorithm>
#include <utility>

namespace mail {

namespace {

constexpr char kHtmlHead[] = "MIME-Version: 1.0\r\n"
                             "Content-Type: text/html; charset=utf-8\r\n"
                             "Content-Transfer-Encoding: 8bit\r\n"
                             "\r\n";

constexpr qsizetype kPiece = qsizetype(1) << 20; // characters

bool breaksLine(QChar character)
{
    const char16_t code = character.unicode();
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

QByteArray headLine(const char* name, const QString& text)
{
    return QByteArray(name) + ": " + onOneLine(text).toUtf8() + "\r\n";
}

bool endsLine(QChar character)
{
    return character == u'\r' || character == u'\n';
}

// Up to the end of the line or as much as is added at once. What two units of UTF-16 stand for
// stays whole.
QStringView partOfLine(QStringView text)
{
    const QStringView most = text.first(std::min(text.size(), kPiece));
    const QStringView part = most.first(std::ranges::find_if(most, endsLine) - most.begin());
    const bool splits = part.size() == kPiece && part.size() < text.size() &&
                        part.back().isHighSurrogate() && text[part.size()].isLowSurrogate();
    return splits ? part.chopped(1) : part;
}

} // namespace

QString onOneLine(const QString& text)
{
    QString line = text;
    std::replace_if(line.begin(), line.end(), breaksLine, QChar(u' '));
    return line;
}

PlainMessage::PlainMessage(const MailDraft& draft)
    : m_html(draft.html)
{
    m_text.reserve(draft.html.size() + draft.html.size() / 16);
    m_text += headLine("From", draft.from);
    m_text += headLine("To", draft.to);
    m_text += headLine("Subject", draft.subject);
    m_text += kHtmlHead;
}

bool PlainMessage::goOn()
{
    const qsizetype enough = m_at + kPiece;
    while (m_at < std::min(enough, m_html.size())) {
        addPartOfLine();
    }
    return m_at < m_html.size();
}

// CR, LF and CR LF end a line, and so does the end of the text unless a line has just ended.
void PlainMessage::addPartOfLine()
{
    const QStringView rest = QStringView(m_html).sliced(m_at);
    const QStringView part = partOfLine(rest);
    if (!m_inLine && part.startsWith(u'.')) {
        m_text.append('.');
    }
    m_text.append(part.toUtf8());
    const QStringView behind = rest.sliced(part.size());
    m_inLine = !behind.isEmpty() && !endsLine(behind.front());
    m_at += part.size();
    if (!m_inLine) {
        m_text.append("\r\n");
        m_at += behind.startsWith(u"\r\n") ? 2 : behind.isEmpty() ? 0 : 1;
    }
}

QByteArray PlainMessage::take()
{
    m_text += '.';
    return std::exchange(m_text, {});
}

QByteArray mailMessageText(const MailDraft& draft)
{
    PlainMessage message(draft);
    while (message.goOn()) {
    }
    return message.take();
}

} // namespace mail
