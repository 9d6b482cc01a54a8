#include "publishing/mail/mime_message.h"

#include "publishing/mail/mail_encoding.h"

#include <QFileInfo>
#include <QLocale>
#include <algorithm>
#include <array>
#include <utility>

namespace mail {

namespace {

constexpr qsizetype kPiece = 48 * 1024;
constexpr qint64 kPictureBytes = 600 * kBytesOfBase64Line; // 46,800 characters

constexpr qsizetype kMostBeside = 64; // characters of name and address on one line

struct PictureType {
    const char* extension;
    const char* type;
};

constexpr std::array<PictureType, 13> kPictureTypes{{
    {"jpg", "image/jpeg"},
    {"jpeg", "image/jpeg"},
    {"jif", "image/jpeg"},
    {"png", "image/png"},
    {"gif", "image/gif"},
    {"bmp", "image/bmp"},
    {"tif", "image/tiff"},
    {"tiff", "image/tiff"},
    {"webp", "image/webp"},
    {"ico", "image/vnd.microsoft.icon"},
    {"psd", "image/vnd.adobe.photoshop"},
    {"pcx", "image/vnd.zbrush.pcx"},
    {"tga", "image/x-tga"},
}};

QByteArray typeOf(const QString& path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    for (const PictureType& row : kPictureTypes) {
        if (extension == QLatin1String(row.extension)) {
            return row.type;
        }
    }
    return "application/octet-stream";
}

QByteArray addressWords(const MailAddress& one)
{
    const QByteArray address = onTheWire(one.address);
    if (one.name.isEmpty()) {
        return address;
    }
    const QByteArray name = nameWords(one.name);
    const bool fold = name.size() + address.size() > kMostBeside;
    return name + (fold ? "\r\n <" : " <") + address + '>';
}

QByteArray addressLine(const std::vector<MailAddress>& addresses)
{
    QByteArrayList words;
    for (const MailAddress& one : addresses) {
        words.append(addressWords(one));
    }
    return words.join(",\r\n ");
}

// A From field without an address is the name of whoever sends.
std::vector<MailAddress> sendersOf(const QString& field, const QString& address)
{
    std::vector<MailAddress> senders = addressesIn(field);
    if (!senders.empty() && canBeSentTo(senders.front().address)) {
        return {senders.front()};
    }
    return {{onOneLine(field).trimmed(), address}};
}

QByteArray dateOf(const QDateTime& written)
{
    const QByteArray day = QLocale::c().toString(written, QStringLiteral("ddd, ")).toLatin1();
    return day + written.toString(Qt::RFC2822Date).toLatin1();
}

QByteArray domainOf(const QString& address)
{
    const QByteArray wire = onTheWire(address);
    return wire.mid(wire.lastIndexOf('@') + 1);
}

QByteArray headOf(const MailDraft& draft, const QString& senderAddress, const MessageMark& mark)
{
    return "Date: " + dateOf(mark.written) +
           "\r\nFrom: " + addressLine(sendersOf(draft.from, senderAddress)) +
           "\r\nTo: " + addressLine(addressesIn(draft.to)) +
           "\r\nSubject: " + headWords(draft.subject) + "\r\nMessage-ID: <" + mark.token + '@' +
           domainOf(senderAddress) + ">\r\nMIME-Version: 1.0\r\n";
}

constexpr char kHtmlHead[] = "Content-Type: text/html; charset=utf-8\r\n"
                             "Content-Transfer-Encoding: quoted-printable\r\n"
                             "\r\n";

QByteArray pictureHead(const QFile& picture)
{
    const QString name = QFileInfo(picture).fileName();
    return "Content-Type: " + typeOf(name) +
           "\r\nContent-Transfer-Encoding: base64"
           "\r\nContent-Disposition: attachment; size=" +
           QByteArray::number(picture.size()) + ";\r\n " + headParameter("filename", name) +
           "\r\n\r\n";
}

} // namespace

MimeMessage::MimeMessage(const MailDraft& draft, const QString& senderAddress,
                         const MessageMark& mark)
    : m_picture(draft.picture)
{
    const QByteArray head = headOf(draft, senderAddress, mark);
    m_needsUnicode = !isAscii(head);
    if (draft.picture.isEmpty()) {
        addText(head + kHtmlHead);
        addHtml(draft.html);
        return;
    }
    m_broken = !QFileInfo(draft.picture).isFile() || !m_picture.open(QIODevice::ReadOnly);
    const QByteArray line = "--=_" + mark.token; // nothing that is encoded has "=_"
    addText(head + "Content-Type: multipart/mixed;\r\n boundary=\"=_" + mark.token + "\"\r\n\r\n" +
            line + "\r\n" + kHtmlHead);
    addHtml(draft.html);
    addText("\r\n" + line + "\r\n" + pictureHead(m_picture));
    addPicture();
    addText(line + "--\r\n");
}

void MimeMessage::addText(const QByteArray& text)
{
    m_size += text.size();
    m_sources.emplace_back([left = text]() mutable { return std::exchange(left, {}); });
}

void MimeMessage::addHtml(const QString& html)
{
    const QByteArray text = html.toUtf8();
    m_size += quotedPrintableSize(text);
    m_sources.emplace_back([left = QuotedPrintable(text)]() mutable { return left.next(kPiece); });
}

void MimeMessage::addPicture()
{
    m_leftOfPicture = m_picture.size();
    m_size += base64LinesSize(m_leftOfPicture);
    m_sources.emplace_back([this] { return nextOfPicture(); });
}

// As many bytes as the head has told of, whatever becomes of the file meanwhile.
QByteArray MimeMessage::nextOfPicture()
{
    const qint64 wanted = std::min(kPictureBytes, m_leftOfPicture);
    const QByteArray bytes = m_picture.read(wanted);
    m_broken = bytes.size() != wanted;
    m_leftOfPicture -= wanted;
    return m_broken ? QByteArray() : base64Lines(bytes);
}

QByteArray MimeMessage::next()
{
    while (!m_sources.empty() && !m_broken) {
        if (const QByteArray piece = m_sources.front()(); !piece.isEmpty()) {
            return piece;
        }
        if (!m_broken) {
            m_sources.pop_front();
        }
    }
    return {};
}

} // namespace mail
