#include "scan_helper/scanner.h"

#include "scan_helper/option_access.h"
#include "scan_helper/preview_settings.h"
#include "scan_helper/scan_run.h"

namespace scan_helper {

namespace {

using platform::ScanFailure;
using platform::ScanKind;
using platform::ScanMessage;

// Set when a driver asks for a name and a password, which nobody is asked for.
bool g_passwordWanted = false;

void refusePassword(SANE_String_Const /*resource*/, SANE_Char* user, SANE_Char* password)
{
    g_passwordWanted = true;
    user[0] = '\0';
    password[0] = '\0';
}

std::string textOf(SANE_String_Const text)
{
    return text == nullptr ? std::string() : text;
}

// The options for a preview while it lives, those from before afterwards.
class PreviewOptions {
public:
    PreviewOptions(const SaneLibrary& sane, SANE_Handle scanner)
        : m_sane(sane)
        , m_scanner(scanner)
    {
        setPreview(m_sane, m_scanner, true);
        const auto options = readOptions(m_sane, m_scanner);
        const auto changes = previewSettings(options);
        m_before = settingsBefore(changes, options);
        set(changes);
    }
    ~PreviewOptions()
    {
        set(m_before);
        setPreview(m_sane, m_scanner, false);
    }
    PreviewOptions(const PreviewOptions&) = delete;
    PreviewOptions& operator=(const PreviewOptions&) = delete;

private:
    void set(const std::vector<Setting>& settings)
    {
        for (const Setting& setting : settings) {
            setOption(m_sane, m_scanner, setting.role, setting.value);
        }
    }

    const SaneLibrary& m_sane;
    SANE_Handle m_scanner;
    std::vector<Setting> m_before;
};

} // namespace

Scanner::Scanner(const SaneLibrary& sane, MessagePipe& pipe, std::span<std::byte> memory)
    : m_sane(sane)
    , m_pipe(pipe)
    , m_memory(memory)
    , m_initialised(sane.init(nullptr, refusePassword))
{
}

Scanner::~Scanner()
{
    if (m_scanner != nullptr) {
        m_sane.close(m_scanner);
    }
    if (m_initialised == SANE_STATUS_GOOD) {
        m_sane.exit();
    }
}

void Scanner::fail(ScanFailure why)
{
    m_pipe.answer(platform::failedMessage(g_passwordWanted ? ScanFailure::WantsPassword : why));
    g_passwordWanted = false;
}

bool Scanner::answer(const Request& request)
{
    if (m_initialised != SANE_STATUS_GOOD) {
        fail(failureOf(m_initialised));
        return true;
    }
    if (request.kind == ScanMessage::List) {
        return list();
    }
    if (request.kind == ScanMessage::Open) {
        const auto name = platform::readOpen(request.body);
        return name && open(*name);
    }
    if (request.kind == ScanMessage::Set && m_scanner != nullptr) {
        const auto set = platform::readSet(request.body);
        if (set) {
            setOption(m_sane, m_scanner, set->role, set->value);
        }
        return set && tellOptions();
    }
    if (request.kind == ScanMessage::Scan && m_scanner != nullptr) {
        const auto kind = platform::readScan(request.body);
        return kind && scan(*kind);
    }
    // A scan that is to end may have ended already.
    return request.kind == ScanMessage::Cancel;
}

bool Scanner::list()
{
    const SANE_Device** devices = nullptr;
    const SANE_Status status = m_sane.getDevices(&devices, SANE_FALSE);
    if (status != SANE_STATUS_GOOD || devices == nullptr) {
        fail(failureOf(status));
        return true;
    }
    std::vector<platform::ScannerFacts> found;
    for (; *devices != nullptr; ++devices) {
        const SANE_Device& device = **devices;
        found.push_back({textOf(device.name), textOf(device.vendor), textOf(device.model),
                         textOf(device.type)});
    }
    m_pipe.answer(platform::scannersMessage(found));
    return true;
}

bool Scanner::open(const std::string& name)
{
    if (m_scanner != nullptr) {
        return false;
    }
    const SANE_Status status = m_sane.open(name.c_str(), &m_scanner);
    if (status != SANE_STATUS_GOOD) {
        m_scanner = nullptr;
        fail(failureOf(status));
        return true;
    }
    return tellOptions();
}

bool Scanner::tellOptions()
{
    m_pipe.answer(platform::optionsMessage(readOptions(m_sane, m_scanner)));
    return true;
}

// The picture doesn't wait until the scanner is ready again.
bool Scanner::scan(ScanKind kind)
{
    std::optional<PreviewOptions> preview;
    if (kind == ScanKind::Preview) {
        preview.emplace(m_sane, m_scanner);
    }
    ScanRun run(m_sane, m_scanner, m_pipe, m_memory);
    const auto outcome = run.run();
    if (const auto* picture = std::get_if<platform::ScanShape>(&outcome)) {
        m_pipe.answer(platform::pictureMessage(*picture));
    } else {
        fail(std::get<ScanFailure>(outcome));
    }
    return true;
}

} // namespace scan_helper
