#include "publishing/mail/smtp_login.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <algorithm>
#include <array>
#include <utility>

namespace mail {

namespace {

// The derivation runs at once, so a server may not ask for seconds of it.
constexpr int kMostRounds = 100000;

using Hash = QCryptographicHash::Algorithm;

// As both sides spell a name or password before it is compared.
QByteArray prepared(const QString& text)
{
    return text.normalized(QString::NormalizationForm_KC).toUtf8();
}

class PlainLogin : public SmtpLogin {
public:
    explicit PlainLogin(const MailUser& user)
        : m_text('\0' + user.name.toUtf8() + '\0' + user.password.toUtf8())
    {
    }
    [[nodiscard]] QByteArray command() const override { return "AUTH PLAIN " + m_text.toBase64(); }
    // Of a server that takes nothing with the command.
    [[nodiscard]] std::optional<QByteArray> answer(const QByteArray&) override
    {
        return std::exchange(m_answered, true) ? std::nullopt : std::optional(m_text);
    }

private:
    QByteArray m_text;
    bool m_answered = false;
};

// The server asks for the name and then for the password, in words that differ from server to
// server.
class NameAndPasswordLogin : public SmtpLogin {
public:
    explicit NameAndPasswordLogin(const MailUser& user)
        : m_answers{user.name.toUtf8(), user.password.toUtf8()}
    {
    }
    [[nodiscard]] QByteArray command() const override { return "AUTH LOGIN"; }
    [[nodiscard]] std::optional<QByteArray> answer(const QByteArray&) override
    {
        return m_next < m_answers.size() ? std::optional(m_answers[m_next++]) : std::nullopt;
    }

private:
    std::array<QByteArray, 2> m_answers;
    std::size_t m_next = 0;
};

QByteArray keyed(const QByteArray& key, const QByteArray& text, Hash hash)
{
    return QMessageAuthenticationCode::hash(text, key, hash);
}

QByteArray mixed(QByteArray left, const QByteArray& right)
{
    std::transform(left.begin(), left.end(), right.begin(), left.begin(),
                   [](char one, char other) { return char(one ^ other); });
    return left;
}

// PBKDF2 with one block.
QByteArray derivedKey(const QByteArray& password, const QByteArray& salt, int rounds, Hash hash)
{
    QMessageAuthenticationCode code(hash, password);
    code.addData(salt + QByteArray("\0\0\0\1", 4));
    QByteArray last = code.result();
    QByteArray key = last;
    for (int round = 1; round < rounds; ++round) {
        code.reset();
        code.addData(last);
        last = code.result();
        key = mixed(key, last);
    }
    return key;
}

QByteArray escapedName(const QString& name)
{
    return prepared(name).replace('=', "=3D").replace(',', "=2C");
}

// SCRAM: neither side tells the password, and the server proves that it knows it too.
class ProvingLogin : public SmtpLogin {
public:
    ProvingLogin(const char* name, Hash hash, const MailUser& user, const QByteArray& nonce)
        : m_name(name)
        , m_hash(hash)
        , m_password(prepared(user.password))
        , m_nonce(nonce)
        , m_first("n=" + escapedName(user.name) + ",r=" + nonce)
    {
    }

    [[nodiscard]] QByteArray command() const override
    {
        return "AUTH " + m_name + ' ' + ("n,," + m_first).toBase64();
    }
    [[nodiscard]] std::optional<QByteArray> answer(const QByteArray& question) override
    {
        return m_expected.isEmpty() ? proof(question) : acknowledgement(question);
    }
    [[nodiscard]] bool isProved() const override { return m_proved; }

private:
    [[nodiscard]] std::optional<QByteArray> proof(const QByteArray& question);
    [[nodiscard]] std::optional<QByteArray> acknowledgement(const QByteArray& question);

    QByteArray m_name;
    Hash m_hash;
    QByteArray m_password;
    QByteArray m_nonce;
    QByteArray m_first;
    QByteArray m_expected; // the server's last words; empty before it has asked
    bool m_proved = false;
};

struct Question {
    QByteArray nonce;
    QByteArray salt;
    int rounds = 0;
};

std::optional<Question> questionIn(const QByteArray& text, const QByteArray& ownNonce)
{
    const QByteArrayList fields = text.split(',');
    if (fields.size() < 3 || !fields[0].startsWith("r=") || !fields[1].startsWith("s=") ||
        !fields[2].startsWith("i=")) {
        return std::nullopt;
    }
    const Question question{fields[0].mid(2), QByteArray::fromBase64(fields[1].mid(2)),
                            fields[2].mid(2).toInt()};
    const bool isWhole = question.nonce.startsWith(ownNonce) &&
                         question.nonce.size() > ownNonce.size() && !question.salt.isEmpty() &&
                         question.rounds > 0 && question.rounds <= kMostRounds;
    return isWhole ? std::optional(question) : std::nullopt;
}

std::optional<QByteArray> ProvingLogin::proof(const QByteArray& text)
{
    const std::optional<Question> question = questionIn(text, m_nonce);
    if (!question) {
        return std::nullopt;
    }
    const QByteArray salted = derivedKey(m_password, question->salt, question->rounds, m_hash);
    const QByteArray last = "c=biws,r=" + question->nonce;
    const QByteArray talk = m_first + ',' + text + ',' + last;
    const QByteArray clientKey = keyed(salted, "Client Key", m_hash);
    const QByteArray storedKey = QCryptographicHash::hash(clientKey, m_hash);
    m_expected = "v=" + keyed(keyed(salted, "Server Key", m_hash), talk, m_hash).toBase64();
    return last + ",p=" + mixed(clientKey, keyed(storedKey, talk, m_hash)).toBase64();
}

std::optional<QByteArray> ProvingLogin::acknowledgement(const QByteArray& text)
{
    m_proved = text.split(',').front() == m_expected;
    return m_proved ? std::optional(QByteArray()) : std::nullopt;
}

} // namespace

std::unique_ptr<SmtpLogin> bestLogin(const QByteArrayList& offered, const MailUser& user,
                                     const QByteArray& nonce)
{
    if (offered.contains("SCRAM-SHA-256")) {
        return std::make_unique<ProvingLogin>("SCRAM-SHA-256", QCryptographicHash::Sha256, user,
                                              nonce);
    }
    if (offered.contains("SCRAM-SHA-1")) {
        return std::make_unique<ProvingLogin>("SCRAM-SHA-1", QCryptographicHash::Sha1, user, nonce);
    }
    if (offered.contains("PLAIN")) {
        return std::make_unique<PlainLogin>(user);
    }
    if (offered.contains("LOGIN")) {
        return std::make_unique<NameAndPasswordLogin>(user);
    }
    return nullptr;
}

} // namespace mail
