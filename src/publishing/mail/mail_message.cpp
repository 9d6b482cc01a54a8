#include "publishing/mail/mail_message.h"

#include <algorithm>

namespace mail {

namespace {

constexpr char kHtmlHead[] = "MIME-Version: 1.0\r\n"
                             "Content-Type: text/html; charset=utf-8\r\n"
                             "Content-Transfer-Encoding: 8bit\r\n"
                             "\r\n";

bool breaksLine(QChar character)
{
    const char16_t code = character.unicode();
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

QByteArray headLine(const char* name, const QString& text)
{
    return QByteArray(name) + ": " + onOneLine(text).toUtf8() + "\r\n";
}

void appendLine(QByteArray& to, QStringView line)
{
    if (line.startsWith(u'.')) {
        to.append('.');
    }
    to.append(line.toUtf8());
    to.append("\r\n");
}

// CR, LF and CR LF end a line, and so does the end of the text unless a line has just ended.
void appendBody(QByteArray& to, QStringView text)
{
    while (!text.isEmpty()) {
        const auto end = std::find_if(text.begin(), text.end(),
                                      [](QChar one) { return one == u'\r' || one == u'\n'; });
        const qsizetype length = end - text.begin();
        appendLine(to, text.first(length));
        text = text.sliced(length);
        if (!text.isEmpty()) {
            text = text.sliced(text.startsWith(u"\r\n") ? 2 : 1);
        }
    }
}

} // namespace

QString onOneLine(const QString& text)
{
    QString line = text;
    std::replace_if(line.begin(), line.end(), breaksLine, QChar(u' '));
    return line;
}

QByteArray mailMessageText(const MailDraft& draft)
{
    QByteArray text;
    text.reserve(draft.html.size() + draft.html.size() / 16);
    text += headLine("From", draft.from);
    text += headLine("To", draft.to);
    text += headLine("Subject", draft.subject);
    text += kHtmlHead;
    appendBody(text, draft.html);
    text += '.';
    return text;
}

} // namespace mail
