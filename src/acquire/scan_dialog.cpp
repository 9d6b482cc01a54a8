#include "acquire/scan_dialog.h"

#include "acquire/scan_controls.h"
#include "acquire/scan_preview.h"
#include "widgets/form_builder.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <utility>

namespace acquire {

namespace {

using platform::ScanFailure;
using platform::ScanKind;
using platform::ScannerSession;
using platform::ScanRole;
using platform::ScanValue;

constexpr int kControlsWidth = 250; // pixels
constexpr int kStatusLines = 2;

const QString kPreview = QStringLiteral("Pre&view");
const QString kTryAgain = QStringLiteral("Tr&y again");

} // namespace

ScanDialog::ScanDialog(QWidget* window, const std::string& scanner, ScanSettings& settings)
    : StripWindow(QStringLiteral("Scan"))
    , m_scanner(scanner)
    , m_settings(settings)
{
    setParent(window, windowFlags());
    setObjectName("ScanDialog");
    buildControls();
    open();
}

void ScanDialog::buildControls()
{
    widgets::FormBuilder form(*this);
    widgets::FormBuilder row = form.addRow(1);
    m_preview = row.add(new ScanPreview, "preview", "Area to scan", 1);
    widgets::FormBuilder column = row.addColumn();
    m_controls = new ScanControls(column, this);
    m_size = column.add(new QLabel, "lblSize", "Size of the picture");
    m_size->setMinimumWidth(kControlsWidth);
    column.addStretch();
    m_status = column.add(new QLabel, "lblStatus", "What the scanner does");
    m_status->setWordWrap(true);
    m_status->setMinimumHeight(kStatusLines * fontMetrics().lineSpacing());
    m_progress = column.add(new QProgressBar, "progress", "Progress of the scan");
    m_progress->setTextVisible(false);
    m_scanButton = form.addButtons(
        {{"cmdPreview", "Pre&view", [this] { preview(); }},
         {"cmdScan", "&Scan", [this] { scan(); }, widgets::PressedBy::Return},
         {"cmdCancel", "&Cancel", [this] { cancel(); }, widgets::PressedBy::Escape}});
    m_previewButton = findChild<QPushButton*>("cmdPreview");
    connect(m_controls, &ScanControls::changed, this, &ScanDialog::set);
    connect(m_controls, &ScanControls::areaTyped, this, &ScanDialog::setArea);
    connect(m_preview, &ScanPreview::areaDragged, this, &ScanDialog::setArea);
}

void ScanDialog::open()
{
    delete m_session;
    m_isFirst = true;
    m_session = platform::scanners().open(m_scanner, this);
    connect(m_session, &ScannerSession::optionsRead, this, &ScanDialog::take);
    connect(m_session, &ScannerSession::scanned, this, &ScanDialog::takeImage);
    connect(m_session, &ScannerSession::progressed, this, &ScanDialog::takeRows);
    connect(m_session, &ScannerSession::failed, this, &ScanDialog::takeFailure);
    enter(State::Opening, QStringLiteral("Opening the scanner..."));
}

bool ScanDialog::isBusy() const
{
    return m_state == State::Previewing || m_state == State::Scanning;
}

// The area is the dialog's, and goes to the scanner with the scan.
void ScanDialog::take(const ScanOptions& options)
{
    if (isBusy()) {
        return;
    }
    m_options = options;
    m_controls->show(options);
    m_preview->setBed(bedOf(options));
    if (std::exchange(m_isFirst, false)) {
        const ScanSettings first = firstSettings(options, m_settings);
        m_preview->setArea(areaOf(withSettings(options, first)));
        for (const auto& [role, value] : first) {
            m_session->set(role, value);
        }
    }
    m_controls->showArea(m_preview->area());
    showSize();
    if (m_state == State::Opening) {
        enter(State::Ready, QStringLiteral("Ready."));
    }
}

void ScanDialog::set(ScanRole role, const ScanValue& value)
{
    if (m_state == State::Ready) {
        m_settings[role] = value;
        m_session->set(role, value);
    }
}

void ScanDialog::setArea(const QRectF& area)
{
    m_preview->setArea(area);
    m_controls->showArea(m_preview->area());
    showSize();
}

void ScanDialog::showSize()
{
    m_size->setText(pictureText(pictureSize(m_options, m_preview->area())));
}

void ScanDialog::preview()
{
    if (m_state == State::Lost) {
        open();
    } else if (m_state == State::Ready) {
        begin(State::Previewing, ScanKind::Preview, QStringLiteral("Scanning a preview..."));
    }
}

void ScanDialog::scan()
{
    if (m_state != State::Ready) {
        return;
    }
    const QRectF area = m_preview->area();
    if (!area.isEmpty()) {
        const std::pair<ScanRole, double> sides[] = {{ScanRole::Left, area.left()},
                                                     {ScanRole::Top, area.top()},
                                                     {ScanRole::Right, area.right()},
                                                     {ScanRole::Bottom, area.bottom()}};
        for (const auto& [role, number] : sides) {
            m_settings[role] = {{}, number};
            m_session->set(role, {{}, number});
        }
    }
    begin(State::Scanning, ScanKind::Picture, QStringLiteral("Scanning..."));
}

void ScanDialog::begin(State state, ScanKind kind, const QString& text)
{
    enter(state, text);
    m_progress->setRange(0, 0); // until the first rows are there
    m_session->scan(kind);
}

// Stops a scan first; the dialog stays for another one.
void ScanDialog::cancel()
{
    if (isBusy()) {
        m_status->setText(QStringLiteral("Stopping the scanner..."));
        m_session->cancel();
    } else {
        close();
    }
}

void ScanDialog::takeRows(int soFar, int inAll)
{
    if (!isBusy()) {
        return;
    }
    m_progress->setRange(0, inAll);
    m_progress->setValue(soFar);
    if (inAll == 0) {
        m_status->setText(QStringLiteral("Scanning, %1 rows so far...").arg(soFar));
    }
}

void ScanDialog::takeImage(const QImage& image)
{
    if (m_state == State::Previewing) {
        m_preview->setPreview(image);
        enter(State::Ready, QStringLiteral("Draw the area to scan on the preview."));
        m_preview->setFocus();
    } else if (m_state == State::Scanning) {
        m_picture = platform::Picture(image);
        enter(State::Ready, failureText(ScanFailure::NoMemory));
        if (!m_picture.isNothing()) {
            close();
        }
    }
}

void ScanDialog::takeFailure(ScanFailure why)
{
    if (!m_session->isOpen()) {
        enter(State::Lost, failureText(why));
    } else if (isBusy()) {
        enter(State::Ready, failureText(why));
    }
}

// What can't be used meanwhile loses the focus, and gets it back.
void ScanDialog::enter(State state, const QString& text)
{
    if (m_state == State::Ready && state != State::Ready) {
        m_focusBefore = focusWidget();
    }
    m_state = state;
    m_status->setText(text);
    m_progress->setVisible(isBusy());
    m_controls->setEnabled(state == State::Ready);
    m_preview->setEnabled(state == State::Ready);
    m_previewButton->setText(state == State::Lost ? kTryAgain : kPreview);
    m_previewButton->setEnabled(state == State::Ready || state == State::Lost);
    m_scanButton->setEnabled(state == State::Ready);
    if (state == State::Ready) {
        (m_focusBefore != nullptr ? m_focusBefore.data() : m_scanButton)->setFocus();
    }
}

// Nobody waits for the scanner any more.
void ScanDialog::closeEvent(QCloseEvent* event)
{
    if (m_session != nullptr) {
        m_session->disconnect(this);
        m_session->deleteLater();
    }
    StripWindow::closeEvent(event);
}

} // namespace acquire
