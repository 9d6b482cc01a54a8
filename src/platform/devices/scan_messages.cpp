#include "platform/devices/scan_messages.h"

#include "base/byte_reader.h"

#include <bit>
#include <cmath>
#include <utility>

namespace platform {

namespace {

constexpr int kMessages = int(ScanMessage::Failed) + 1;

class Writer {
public:
    explicit Writer(ScanMessage kind)
    {
        byte(std::uint8_t(kind));
        number(0); // the length, known at the end
    }

    Writer& byte(std::uint8_t value)
    {
        m_bytes.push_back(std::byte(value));
        return *this;
    }
    Writer& number(std::uint32_t value)
    {
        for (int shift = 0; shift < 32; shift += 8) {
            byte(std::uint8_t(value >> shift));
        }
        return *this;
    }
    Writer& real(double value)
    {
        const auto bits = std::bit_cast<std::uint64_t>(value);
        return number(std::uint32_t(bits)).number(std::uint32_t(bits >> 32));
    }
    Writer& text(const std::string& value)
    {
        number(std::uint32_t(value.size()));
        for (const char letter : value) {
            byte(std::uint8_t(letter));
        }
        return *this;
    }

    MessageBytes whole()
    {
        const auto length = std::uint32_t(m_bytes.size() - kMessageHeadBytes);
        for (std::size_t i = 0; i < sizeof length; ++i) {
            m_bytes[1 + i] = std::byte(length >> (8 * i));
        }
        return std::move(m_bytes);
    }

private:
    MessageBytes m_bytes;
};

class Reader {
public:
    explicit Reader(std::span<const std::byte> bytes)
        : m_bytes(bytes)
    {
    }

    std::uint8_t byte() { return has(1) ? m_bytes.byteAt(std::exchange(m_at, m_at + 1)) : 0; }
    std::uint32_t number()
    {
        return has(4) ? m_bytes.little32At(std::exchange(m_at, m_at + 4)) : 0;
    }
    double real()
    {
        const std::uint64_t low = number();
        const auto value = std::bit_cast<double>(std::uint64_t(number()) << 32 | low);
        m_ok = m_ok && std::isfinite(value);
        return value;
    }
    std::string text()
    {
        const std::size_t length = number();
        if (!has(length)) {
            return {};
        }
        const auto letters = m_bytes.slice(std::exchange(m_at, m_at + length), length);
        return {reinterpret_cast<const char*>(letters.data()), letters.size()};
    }
    // One of the first values of an enumeration.
    template<typename Choice> Choice choice(int count)
    {
        const int value = byte();
        m_ok = m_ok && value < count;
        return Choice(m_ok ? value : 0);
    }
    // As many entries as are announced, as long as there is something to read for each.
    template<typename Entry, typename Read> std::vector<Entry> list(Read read)
    {
        std::vector<Entry> entries;
        for (std::uint32_t left = number(); left > 0 && m_ok; --left) {
            entries.push_back(read());
        }
        return entries;
    }

    // The value, if all of the bytes made it and no more.
    template<typename Value> std::optional<Value> whole(Value value) const
    {
        return m_ok && m_at == m_bytes.size() ? std::optional<Value>(std::move(value))
                                              : std::nullopt;
    }

private:
    bool has(std::size_t count)
    {
        m_ok = m_ok && count <= m_bytes.size() - m_at;
        return m_ok;
    }

    base::ByteReader m_bytes;
    std::size_t m_at = 0;
    bool m_ok = true;
};

void writeOption(Writer& writer, const ScanOption& option)
{
    writer.byte(std::uint8_t(option.role)).byte(std::uint8_t(option.unit));
    writer.number(std::uint32_t(option.words.size()));
    for (const std::string& word : option.words) {
        writer.text(word);
    }
    writer.number(std::uint32_t(option.numbers.size()));
    for (const double number : option.numbers) {
        writer.real(number);
    }
    writer.real(option.least).real(option.most).real(option.step);
    writer.text(option.value.word).real(option.value.number);
}

ScanOption readOption(Reader& reader)
{
    ScanOption option;
    option.role = reader.choice<ScanRole>(kScanRoles);
    option.unit = reader.choice<ScanUnit>(kScanUnits);
    option.words = reader.list<std::string>([&] { return reader.text(); });
    option.numbers = reader.list<double>([&] { return reader.real(); });
    option.least = reader.real();
    option.most = reader.real();
    option.step = reader.real();
    option.value.word = reader.text();
    option.value.number = reader.real();
    return option;
}

ScannerFacts readFacts(Reader& reader)
{
    ScannerFacts facts;
    facts.name = reader.text();
    facts.vendor = reader.text();
    facts.model = reader.text();
    facts.type = reader.text();
    return facts;
}

} // namespace

std::optional<MessageHead> readHead(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    MessageHead head{};
    head.kind = reader.choice<ScanMessage>(kMessages);
    head.length = reader.number();
    return head.length <= kLongestMessage ? reader.whole(head) : std::nullopt;
}

MessageBytes plainMessage(ScanMessage kind)
{
    return Writer(kind).whole();
}

MessageBytes openMessage(const std::string& scanner)
{
    return Writer(ScanMessage::Open).text(scanner).whole();
}

MessageBytes setMessage(ScanRole role, const ScanValue& value)
{
    Writer writer(ScanMessage::Set);
    return writer.byte(std::uint8_t(role)).text(value.word).real(value.number).whole();
}

MessageBytes scanMessage(ScanKind kind)
{
    return Writer(ScanMessage::Scan).byte(std::uint8_t(kind)).whole();
}

MessageBytes scannersMessage(const std::vector<ScannerFacts>& scanners)
{
    Writer writer(ScanMessage::Scanners);
    writer.number(std::uint32_t(scanners.size()));
    for (const ScannerFacts& facts : scanners) {
        writer.text(facts.name).text(facts.vendor).text(facts.model).text(facts.type);
    }
    return writer.whole();
}

MessageBytes optionsMessage(const std::vector<ScanOption>& options)
{
    Writer writer(ScanMessage::Options);
    writer.number(std::uint32_t(options.size()));
    for (const ScanOption& option : options) {
        writeOption(writer, option);
    }
    return writer.whole();
}

MessageBytes rowsMessage(std::uint32_t soFar, std::uint32_t inAll)
{
    return Writer(ScanMessage::Rows).number(soFar).number(inAll).whole();
}

MessageBytes pictureMessage(const ScanShape& shape)
{
    Writer writer(ScanMessage::Picture);
    return writer.number(shape.width).number(shape.rows).number(shape.channels).whole();
}

MessageBytes failedMessage(ScanFailure why)
{
    return Writer(ScanMessage::Failed).byte(std::uint8_t(why)).whole();
}

std::optional<std::string> readOpen(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    std::string name = reader.text();
    return reader.whole(std::move(name));
}

std::optional<SetRequest> readSet(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    SetRequest request{};
    request.role = reader.choice<ScanRole>(kScanRoles);
    request.value.word = reader.text();
    request.value.number = reader.real();
    return reader.whole(std::move(request));
}

std::optional<ScanKind> readScan(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    const auto kind = reader.choice<ScanKind>(2);
    return reader.whole(kind);
}

std::optional<std::vector<ScannerFacts>> readScanners(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    auto scanners = reader.list<ScannerFacts>([&] { return readFacts(reader); });
    return reader.whole(std::move(scanners));
}

std::optional<std::vector<ScanOption>> readOptions(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    auto options = reader.list<ScanOption>([&] { return readOption(reader); });
    return reader.whole(std::move(options));
}

std::optional<RowCount> readRows(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    const std::uint32_t soFar = reader.number();
    const std::uint32_t inAll = reader.number();
    return reader.whole(RowCount{soFar, inAll});
}

std::optional<ScanShape> readPicture(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    ScanShape shape;
    shape.width = reader.number();
    shape.rows = reader.number();
    shape.channels = reader.number();
    const bool isPicture = shape.rows > 0 && shape.rows <= mostScanRows(shape.width) &&
                           (shape.channels == 1 || shape.channels == 3);
    return isPicture ? reader.whole(shape) : std::nullopt;
}

std::optional<ScanFailure> readFailed(std::span<const std::byte> bytes)
{
    Reader reader(bytes);
    const auto why = reader.choice<ScanFailure>(kScanFailures);
    return reader.whole(why);
}

} // namespace platform
