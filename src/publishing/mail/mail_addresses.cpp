#include "publishing/mail/mail_addresses.h"

#include "publishing/mail/mail_message.h"

#include <QStringList>
#include <QUrl>
#include <algorithm>

namespace mail {

namespace {

QStringList splitAtCommas(const QString& field)
{
    QStringList entries{QString()};
    bool quoted = false;
    for (const QChar character : field) {
        quoted = quoted != (character == u'"');
        if (character == u',' && !quoted) {
            entries.append(QString());
        } else {
            entries.back() += character;
        }
    }
    return entries;
}

MailAddress addressOf(const QString& entry)
{
    const qsizetype begin = entry.lastIndexOf(u'<');
    if (begin < 0 || !entry.endsWith(u'>')) {
        return {{}, entry};
    }
    QString name = entry.left(begin).trimmed();
    if (name.size() >= 2 && name.startsWith(u'"') && name.endsWith(u'"')) {
        name = name.sliced(1, name.size() - 2);
    }
    return {name, entry.sliced(begin + 1).chopped(1).trimmed()};
}

constexpr qsizetype kLongestAddress = 254; // bytes in a command

bool endsAddress(QChar character)
{
    return character.isSpace() || character.unicode() < 0x20 || character == u'<' ||
           character == u'>' || character == u',' || character == u'"';
}

} // namespace

std::vector<MailAddress> addressesIn(const QString& field)
{
    std::vector<MailAddress> addresses;
    for (const QString& entry : splitAtCommas(onOneLine(field))) {
        if (const QString text = entry.trimmed(); !text.isEmpty()) {
            addresses.push_back(addressOf(text));
        }
    }
    return addresses;
}

bool canBeSentTo(const QString& address)
{
    const qsizetype at = address.lastIndexOf(u'@');
    return at > 0 && at < address.size() - 1 && onOneLine(address) == address &&
           std::none_of(address.begin(), address.end(), endsAddress) &&
           onTheWire(address).size() <= kLongestAddress;
}

QByteArray onTheWire(const QString& address)
{
    const qsizetype behindAt = address.lastIndexOf(u'@') + 1;
    const QString domain = address.sliced(behindAt);
    const QByteArray ascii = QUrl::toAce(domain);
    return address.left(behindAt).toUtf8() + (ascii.isEmpty() ? domain.toUtf8() : ascii);
}

} // namespace mail
