#include "publishing/mail/email_address.h"

namespace mail {

namespace {

constexpr QChar kBlank = u' ';

} // namespace

QString withoutBlanks(const QString& text)
{
    qsizetype first = 0;
    qsizetype behind = text.size();
    while (first < behind && text[first] == kBlank) {
        ++first;
    }
    while (behind > first && text[behind - 1] == kBlank) {
        --behind;
    }
    return text.mid(first, behind - first);
}

} // namespace mail

bool IsValidEmail(const QString& address)
{
    constexpr int kTail = 3;
    const QString trimmed = mail::withoutBlanks(address);
    const qsizetype at = trimmed.indexOf(u'@');
    if (at < 1) {
        return false;
    }
    const qsizetype dot = trimmed.indexOf(u'.', at + 1);
    return dot >= 0 && mail::withoutBlanks(trimmed.mid(dot + 1, kTail)).size() >= kTail;
}
