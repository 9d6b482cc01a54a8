#include "platform/devices/helper_scanners.h"

#include "platform/os/paths.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace platform {

namespace {

class HelperSearch : public ScannerSearch {
public:
    HelperSearch(const QString& helper, const ScanPatience& patience, QObject* owner)
        : m_talk(helper)
    {
        setParent(owner);
        connect(&m_talk, &ScanConversation::answered, this, &HelperSearch::take);
        connect(&m_talk, &ScanConversation::ended, this, &ScannerSearch::failed);
        m_talk.setEnding(patience.ending);
        m_talk.send(plainMessage(ScanMessage::List));
        m_talk.expectWithin(patience.answer);
    }

private:
    void take(ScanMessage kind, const QByteArray& bytes)
    {
        m_talk.disconnect(this);
        m_talk.expectWithin(std::chrono::milliseconds(0));
        const auto scanners =
            kind == ScanMessage::Scanners ? readScanners(bytesOf(bytes)) : std::nullopt;
        const auto why = kind == ScanMessage::Failed ? readFailed(bytesOf(bytes)) : std::nullopt;
        if (scanners) {
            emit found(*scanners);
        } else {
            emit failed(why.value_or(ScanFailure::Nonsense));
        }
    }

    ScanConversation m_talk;
};

class HelperSession : public ScannerSession {
public:
    HelperSession(const QString& helper, ScanPatience patience, const std::string& scanner,
                  QObject* owner)
        : m_talk(helper)
        , m_patience(patience)
    {
        setParent(owner);
        connect(&m_talk, &ScanConversation::answered, this, &HelperSession::take);
        connect(&m_talk, &ScanConversation::ended, this, &HelperSession::lose);
        m_talk.setEnding(patience.ending);
        ask(openMessage(scanner), m_patience.answer);
    }

    [[nodiscard]] bool isOpen() const override { return m_talk.isOpen(); }
    void set(ScanRole role, const ScanValue& value) override;
    void scan(ScanKind kind) override;
    void cancel() override;

private:
    void ask(const MessageBytes& message, std::chrono::milliseconds patience);
    void take(ScanMessage kind, const QByteArray& bytes);
    void takeOptions(const QByteArray& bytes);
    void takeRows(const QByteArray& bytes);
    void takePicture(const QByteArray& bytes);
    void takeFailure(const QByteArray& bytes);
    bool settle();
    void lose(ScanFailure why);

    ScanConversation m_talk;
    ScanPatience m_patience;
    int m_unanswered = 0;
    bool m_scanning = false;
    bool m_cancelled = false;
};

void HelperSession::ask(const MessageBytes& message, std::chrono::milliseconds patience)
{
    ++m_unanswered;
    m_talk.send(message);
    m_talk.expectWithin(patience);
}

void HelperSession::set(ScanRole role, const ScanValue& value)
{
    ask(setMessage(role, value), m_patience.answer);
}

void HelperSession::scan(ScanKind kind)
{
    m_scanning = true;
    m_cancelled = false;
    ask(scanMessage(kind), m_patience.rows);
}

void HelperSession::cancel()
{
    if (!m_scanning || m_cancelled) {
        return;
    }
    m_cancelled = true;
    m_talk.send(plainMessage(ScanMessage::Cancel));
    m_talk.expectWithin(m_patience.ending);
}

void HelperSession::take(ScanMessage kind, const QByteArray& bytes)
{
    if (kind == ScanMessage::Options) {
        takeOptions(bytes);
    } else if (kind == ScanMessage::Rows) {
        takeRows(bytes);
    } else if (kind == ScanMessage::Picture) {
        takePicture(bytes);
    } else if (kind == ScanMessage::Failed) {
        takeFailure(bytes);
    } else {
        m_talk.end(ScanFailure::Nonsense);
    }
}

// One request less to wait for. False, and the end, where none was open.
bool HelperSession::settle()
{
    if (m_unanswered == 0) {
        m_talk.end(ScanFailure::Nonsense);
        return false;
    }
    --m_unanswered;
    if (m_unanswered == 0) {
        m_talk.expectWithin(std::chrono::milliseconds(0));
    }
    return true;
}

void HelperSession::takeOptions(const QByteArray& bytes)
{
    const auto options = readOptions(bytesOf(bytes));
    if (!options) {
        m_talk.end(ScanFailure::Nonsense);
    } else if (settle() && m_unanswered == 0) {
        emit optionsRead(*options);
    }
}

void HelperSession::takeRows(const QByteArray& bytes)
{
    const auto rows = readRows(bytesOf(bytes));
    if (!rows || !m_scanning) {
        m_talk.end(ScanFailure::Nonsense);
    } else if (!m_cancelled) {
        const auto most = std::uint32_t(std::numeric_limits<int>::max());
        emit progressed(int(std::min(rows->soFar, most)), int(std::min(rows->inAll, most)));
    }
}

void HelperSession::takePicture(const QByteArray& bytes)
{
    const auto shape = readPicture(bytesOf(bytes));
    if (!shape || !m_scanning) {
        m_talk.end(ScanFailure::Nonsense);
        return;
    }
    if (!settle()) {
        return;
    }
    m_scanning = false;
    const QImage image = m_cancelled ? QImage() : m_talk.memory().image(*shape);
    if (!image.isNull()) {
        emit scanned(image);
    } else {
        emit failed(m_cancelled ? ScanFailure::Cancelled : ScanFailure::NoMemory);
    }
}

// A scanner that can't be opened is lost at once; later only a scan fails.
void HelperSession::takeFailure(const QByteArray& bytes)
{
    const auto why = readFailed(bytesOf(bytes));
    if (!why) {
        m_talk.end(ScanFailure::Nonsense);
    } else if (!m_scanning) {
        m_talk.end(*why);
    } else if (settle()) {
        m_scanning = false;
        emit failed(m_cancelled ? ScanFailure::Cancelled : *why);
    }
}

void HelperSession::lose(ScanFailure why)
{
    const bool wasCancelled = m_scanning && m_cancelled;
    m_scanning = false;
    emit failed(wasCancelled ? ScanFailure::Cancelled : why);
}

} // namespace

QString scanHelper()
{
    return joinPath(programFolder(), QStringLiteral("vistara-scan"));
}

HelperScanners::HelperScanners(QString helper, ScanPatience patience)
    : m_helper(std::move(helper))
    , m_patience(patience)
{
}

QString HelperScanners::helper() const
{
    return m_helper.isEmpty() ? scanHelper() : m_helper;
}

ScannerSearch* HelperScanners::search(QObject* owner)
{
    return new HelperSearch(helper(), m_patience, owner);
}

ScannerSession* HelperScanners::open(const std::string& scanner, QObject* owner)
{
    return new HelperSession(helper(), m_patience, scanner, owner);
}

} // namespace platform
