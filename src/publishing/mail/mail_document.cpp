#include "publishing/mail/mail_document.h"

#include "platform/os/paths.h"
#include "publishing/mail/email_address.h"

#include <algorithm>

namespace mail {

namespace {

constexpr QByteArrayView kFirstLine("[Quillpost Sender Beta 1 Do not edit below this line]");
constexpr QByteArrayView kToMarker("[MailFrom]");
constexpr QByteArrayView kFromMarker("[MAILTO]");
constexpr QByteArrayView kSubjectMarker("[SUBJECT]");
constexpr QByteArrayView kBodyMarker("[MAILDATA]");
constexpr QByteArrayView kLineEnd("\r\n");
constexpr QByteArrayView kBodyEnd("\x19");

QByteArray bytesOf(const QString& text)
{
    return QByteArray::fromStdString(platform::toNative(text));
}

void appendField(QByteArray& bytes, QByteArrayView marker, const QString& text)
{
    bytes.append(marker);
    bytes.append(bytesOf(withoutBlanks(text)));
    bytes.append(kLineEnd);
}

std::optional<QString> textBetween(const QByteArray& bytes, QByteArrayView marker,
                                   QByteArrayView end)
{
    const qsizetype found = bytes.indexOf(marker);
    if (found < 0) {
        return std::nullopt;
    }
    const qsizetype first = found + marker.size();
    const qsizetype behind = bytes.indexOf(end, first);
    if (behind < 0) {
        return std::nullopt;
    }
    return platform::fromNative(
        std::string(bytes.constData() + first, static_cast<std::size_t>(behind - first)));
}

std::optional<QString> fieldBehind(const QByteArray& bytes, QByteArrayView marker)
{
    std::optional<QString> text = textBetween(bytes, marker, kLineEnd);
    if (text) {
        const auto isLineEnd = [](QChar c) { return c == u'\r' || c == u'\n'; };
        text->truncate(std::find_if(text->cbegin(), text->cend(), isLineEnd) - text->cbegin());
    }
    return text;
}

} // namespace

QByteArray documentBytes(const MailDocument& document)
{
    QByteArray bytes;
    bytes.append(kFirstLine);
    bytes.append(kLineEnd);
    appendField(bytes, kToMarker, document.to);
    appendField(bytes, kFromMarker, document.from);
    appendField(bytes, kSubjectMarker, document.subject);
    bytes.append(kBodyMarker);
    bytes.append(bytesOf(document.body));
    bytes.append(kBodyEnd);
    bytes.append(kLineEnd);
    return bytes;
}

DocumentRecords readDocument(const QByteArray& bytes)
{
    DocumentRecords found;
    found.to = fieldBehind(bytes, kToMarker);
    if (found.to) {
        found.from = fieldBehind(bytes, kFromMarker);
    }
    if (found.from) {
        found.subject = fieldBehind(bytes, kSubjectMarker);
    }
    if (found.subject) {
        found.body = textBetween(bytes, kBodyMarker, kBodyEnd);
    }
    return found;
}

} // namespace mail
