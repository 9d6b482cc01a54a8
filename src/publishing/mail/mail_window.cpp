#include "publishing/mail/mail_window.h"

#include "core/file_field.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/window_names.h"
#include "files/size_text.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pump.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "publishing/mail/email_address.h"
#include "publishing/mail/html_editor.h"
#include "publishing/mail/mail_setup_window.h"
#include "publishing/mail/password.h"
#include "widgets/chameleon_button.h"
#include "widgets/title_strip.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <algorithm>
#include <utility>

using mail::DocumentRecords;
using platform::BoxIcon;

namespace {

constexpr QSize kFirstSize(660, 580); // pixels
constexpr int kSendButton = 0;

const QString kCaption = QStringLiteral("Send E-mail");
const QString kErrorTitle = QStringLiteral("Error");
const QString kFilter = QStringLiteral("All Files(*.Quillpost)|*.QPM");
const QString kExtension = QStringLiteral(".qpm");
const QString kSent = QStringLiteral("Status : Send Complete");

// What a document can't be saved without, by the markers that the fields stand under in the file.
constexpr std::array<const char*, frmMailSender::kFields> kMissing{
    "The mail could not be saved No Mail From has been completed.",
    "The mail message could not be saved No Recipient has been completed.",
    "The mail message could not be saved No Subject has been completed.",
};

platform::FileRequest requestFor(const char* title)
{
    platform::FileRequest request;
    request.title = QString::fromLatin1(title);
    request.filter = kFilter;
    request.folder = platform::withSeparator(platform::appPath());
    return request;
}

bool hasSettingsFile()
{
    return platform::isRegularFile(platform::appFile(QStringLiteral("config.ini")));
}

bool isDocumentName(const QString& path)
{
    return path.right(3).toUpper() == QStringLiteral("QPM");
}

void showError(const char* text)
{
    platform::dialogs().showMessage(QString::fromLatin1(text), kErrorTitle, BoxIcon::Critical);
}

// The picture shown, where it is a file; empty without one.
QString pictureInHand()
{
    const core::FileField* field = core::services().field;
    const QString path = field == nullptr ? QString() : field->Xiala();
    return platform::isRegularFile(path) ? path : QString();
}

} // namespace

frmMailSender::frmMailSender()
    : StripWindow(kCaption)
    , m_client(new mail::SmtpClient(*this, this))
{
    setObjectName(core::windowName(core::Window::frmMailSender));
    m_client->setObjectName(QStringLiteral("smtp"));
    buildControls();
    resize(kFirstSize.boundedTo(screen()->availableSize()));
    connect(m_client.get(), &mail::SmtpClient::sendingChanged, this,
            [this](bool sending) { letSend(!sending); });
    load();
    offerPicture();
    m_editor->newDocument();
    setUnchanged();
    m_txtMail[0]->setFocus();
}

frmMailSender::~frmMailSender() = default;

void frmMailSender::load()
{
    m_firstRun = !hasSettingsFile();
    if (!m_firstRun) {
        mail::readMailSettings(m_client->settings);
        m_txtMail[1]->setText(m_client->settings.MailFromAddress);
    }
}

// The box comes once the window is on the screen.
void frmMailSender::showEvent(QShowEvent* event)
{
    StripWindow::showEvent(event);
    if (m_firstRun && !std::exchange(m_introduced, true)) {
        QMetaObject::invokeMethod(this, &frmMailSender::introduceSetup, Qt::QueuedConnection);
    }
}

void frmMailSender::introduceSetup()
{
    const QPointer<frmMailSender> alive = this;
    platform::dialogs().showMessage(
        QStringLiteral("Your new mail sender needs to be setup before you can use it."),
        QStringLiteral("Setup Mail Sender"), BoxIcon::Information);
    if (alive != nullptr && isVisible()) {
        openSetup();
    }
}

void frmMailSender::openSetup()
{
    const QPointer<frmMailSender> alive = this;
    mail::showMailSetup(m_client->settings, m_firstRun);
    if (alive == nullptr) {
        return;
    }
    m_firstRun = m_firstRun && !hasSettingsFile();
    if (isVisible() && !platform::isClosing()) {
        activateWindow(); // before the main window, which both windows belong to
    }
}

void frmMailSender::pressButton(int index)
{
    using Action = void (frmMailSender::*)();
    static constexpr std::array<Action, kButtons> kActions{
        &frmMailSender::send,     &frmMailSender::openDocument, &frmMailSender::saveDocument,
        &frmMailSender::cut,      &frmMailSender::copy,         &frmMailSender::paste,
        &frmMailSender::openSetup};
    (this->*kActions.at(static_cast<std::size_t>(index)))();
}

// Where the keyring is asked, and the user, events run: one sending at a time from here on.
void frmMailSender::send()
{
    if (!m_toolbar[kSendButton]->isEnabled() || !hasRecipient()) {
        return;
    }
    const QPointer<frmMailSender> alive = this;
    letSend(false);
    if (takePassword() && alive != nullptr && isVisible()) {
        m_client->Send({m_txtMail[1]->text(), m_txtMail[0]->text(), m_txtMail[2]->text(),
                        m_editor->documentHtml(), m_attach->isChecked() ? m_picture : QString()});
    }
    if (alive == nullptr) {
        return;
    }
    m_client->password.clear();
    letSend(true);
    if (m_lblStatus->text() == kSent) {
        setUnchanged();
    }
}

bool frmMailSender::hasRecipient()
{
    if (core::setting(core::kClassic) || !mail::withoutBlanks(m_txtMail[0]->text()).isEmpty()) {
        return true;
    }
    const QPointer<frmMailSender> alive = this;
    platform::dialogs().showMessage(QStringLiteral("Enter whom the mail is for."), kCaption,
                                    BoxIcon::Information);
    if (alive != nullptr) {
        m_txtMail[0]->setFocus();
    }
    return false;
}

// False when the user was asked for it and gave none.
bool frmMailSender::takePassword()
{
    const QPointer<frmMailSender> alive = this;
    const mail::MailSettings settings = m_client->settings; // outlives the window
    const std::optional<QString> password = mail::passwordFor(settings);
    if (password && alive != nullptr) {
        m_client->password = *password;
    }
    return password.has_value();
}

void frmMailSender::letSend(bool on)
{
    m_toolbar[kSendButton]->setEnabled(on && !m_client->isSending());
}

void frmMailSender::openDocument()
{
    const QPointer<frmMailSender> alive = this;
    const QStringList files = platform::dialogs().openFiles(requestFor("Open Email"));
    if (files.isEmpty() || alive == nullptr) {
        return;
    }
    if (!isDocumentName(files.first())) {
        showError("This is not a valid Quillpost document.");
        return;
    }
    if (!mayDiscard() || alive == nullptr) {
        return;
    }
    if (const std::optional<QByteArray> bytes = platform::readFile(files.first())) {
        showDocument(mail::readDocument(*bytes));
    } else {
        showStatus(QStringLiteral("The document could not be read."));
    }
}

// What was found up to a record that is missing stays in the fields. A text that can't be shown
// changes nothing, so that no other mail's text stands under its recipient.
void frmMailSender::showDocument(const DocumentRecords& records)
{
    if (records.body && !m_editor->setDocumentHtml(*records.body)) {
        showStatus(QStringLiteral("The text of this document is too large to be shown."));
        return;
    }
    const std::optional<QString>* const fields[] = {&records.to, &records.from, &records.subject};
    for (std::size_t index = 0; index < m_txtMail.size() && *fields[index]; ++index) {
        m_txtMail.at(index)->setText(**fields[index]);
        m_txtMail.at(index)->setCursorPosition(0);
    }
    if (!records.body) {
        showStatus(QStringLiteral("The document is incomplete; this is what it holds."));
    } else {
        setUnchanged();
        showStatus(QString());
    }
}

void frmMailSender::saveDocument()
{
    if (!isReadyToSave()) {
        return;
    }
    trimFields();
    const QPointer<frmMailSender> alive = this;
    const std::optional<platform::SaveChoice> choice =
        platform::dialogs().saveFile(requestFor("Save Project"));
    if (!choice || choice->path.isEmpty() || alive == nullptr) {
        return;
    }
    writeDocument(isDocumentName(choice->path) ? choice->path : choice->path + kExtension);
}

void frmMailSender::trimFields()
{
    for (QLineEdit* field : m_txtMail) {
        const bool wasModified = field->isModified();
        field->setText(mail::withoutBlanks(field->text()));
        field->setModified(wasModified);
    }
}

bool frmMailSender::isReadyToSave()
{
    for (std::size_t index = 0; index < m_txtMail.size(); ++index) {
        if (mail::withoutBlanks(m_txtMail.at(index)->text()).isEmpty()) {
            showError(kMissing.at(index));
            return false;
        }
    }
    return true;
}

void frmMailSender::writeDocument(const QString& path)
{
    const QByteArray bytes = mail::documentBytes({m_txtMail[0]->text(), m_txtMail[1]->text(),
                                                  m_txtMail[2]->text(), m_editor->documentHtml()});
    if (platform::writeFileWhole(path, bytes, platform::Flush::ToDisk)) {
        setUnchanged();
        showStatus(QString());
    } else {
        showStatus(QStringLiteral("The document could not be written; nothing was changed."));
        if (!core::setting(core::kClassic)) {
            showError("The mail could not be written to this file.");
        }
    }
}

void frmMailSender::cut()
{
    if (m_activeField == kFields) {
        m_editor->ExecCommand(mail::DECMD_CUT);
        return;
    }
    copy();
    QLineEdit& field = markedField();
    if (field.hasSelectedText()) { // del() takes the next letter where nothing is selected
        field.del();
    }
}

void frmMailSender::copy()
{
    if (m_activeField == kFields) {
        m_editor->ExecCommand(mail::DECMD_COPY);
        return;
    }
    const QString text = markedField().selectedText();
    platform::clearClipboard();
    platform::setClipboardText(text);
}

void frmMailSender::paste()
{
    if (m_activeField == kFields) {
        m_editor->ExecCommand(mail::DECMD_PASTE);
    } else {
        markedField().insert(platform::clipboardText());
    }
}

// The field with what is selected in it; one that Tab has left for a button gets that back.
QLineEdit& frmMailSender::markedField()
{
    const auto index = static_cast<std::size_t>(m_activeField);
    QLineEdit& field = *m_txtMail.at(index);
    const Marked& marked = m_marked.at(index);
    if (!field.hasFocus() && !field.hasSelectedText() && marked.start >= 0) {
        field.setSelection(marked.start, marked.length);
    }
    return field;
}

bool frmMailSender::eventFilter(QObject* watched, QEvent* event)
{
    const auto found = std::ranges::find(m_txtMail, watched);
    if (found == m_txtMail.end()) {
        return StripWindow::eventFilter(watched, event);
    }
    const auto index = static_cast<std::size_t>(found - m_txtMail.begin());
    if (event->type() == QEvent::FocusIn) {
        m_activeField = static_cast<int>(index);
    } else if (event->type() == QEvent::FocusOut) {
        m_marked.at(index) = {(*found)->selectionStart(), int((*found)->selectedText().size())};
    }
    return false;
}

// The classic mail has no attachments, and neither has the plain dialogue.
void frmMailSender::offerPicture()
{
    const bool attaches = m_client->settings.security != mail::MailSecurity::None;
    m_attach->setVisible(attaches);
    m_picture = attaches ? pictureInHand() : QString();
    m_attach->setEnabled(!m_picture.isEmpty());
    m_attach->setChecked(!m_picture.isEmpty());
    m_attach->setText(m_picture.isEmpty()
                          ? QStringLiteral("&Attach picture")
                          : QStringLiteral("&Attach picture (%1, %2)")
                                .arg(platform::fileNameOf(m_picture).replace(u'&', "&&"),
                                     files::sizeText(platform::fileSize(m_picture).value_or(0))));
}

bool frmMailSender::isChanged() const
{
    return m_editor->document()->isModified() ||
           std::ranges::any_of(m_txtMail,
                               [](const QLineEdit* field) { return field->isModified(); });
}

void frmMailSender::setUnchanged()
{
    m_editor->document()->setModified(false);
    for (QLineEdit* field : m_txtMail) {
        field->setModified(false);
    }
}

// Asks where a text would be lost that is nowhere else.
bool frmMailSender::mayDiscard()
{
    if (!isChanged() || m_firstRun || platform::isClosing() || core::setting(core::kClassic)) {
        return true;
    }
    platform::Subject asked;
    asked.preset = platform::Answer::No;
    return platform::dialogs().askYesNo(
        QStringLiteral("This mail was neither sent nor saved. Throw it away?"), kCaption, asked);
}

void frmMailSender::closeEvent(QCloseEvent* event)
{
    const QPointer<frmMailSender> alive = this;
    if (!mayDiscard() || alive == nullptr) {
        event->ignore();
        return;
    }
    m_client->leave();
    strip().clearPicture();
    StripWindow::closeEvent(event);
}

void frmMailSender::showStatus(const QString& text)
{
    m_lblStatus->setText(text);
}

void frmMailSender::showBusy(bool busy)
{
    const QLabel& picture = *m_image1.at(busy ? 1 : 0);
    m_imgstatus->setPixmap(picture.pixmap(Qt::ReturnByValue));
    m_imgstatus->setAccessibleDescription(picture.accessibleName());
}
