#include "publishing/mail/mail_setup_window.h"

#include "core/services.h"
#include "core/settings.h"
#include "core/window_names.h"
#include "core/window_registry.h"
#include "platform/desktop/dialogs.h"
#include "publishing/mail/email_address.h"
#include "publishing/mail/mail_settings.h"
#include "publishing/mail/password.h"
#include "publishing/mail/setup_checks.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"
#include "widgets/window_parts.h"

#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <algorithm>
#include <array>

using platform::BoxIcon;

namespace {

constexpr int kFieldWidth = 280; // pixels

// As they stand in the settings file, by number.
struct SecurityRow {
    const char* caption;
    const char* port; // the usual one
};
constexpr std::array kSecurityRows{
    SecurityRow{"None", "25"},
    SecurityRow{"STARTTLS", "587"},
    SecurityRow{"TLS", "465"},
};

bool isUsualPort(const QString& port)
{
    return port == QStringLiteral("0") || std::ranges::any_of(kSecurityRows, [&](const auto& row) {
               return port == QLatin1String(row.port);
           });
}

void showComposer()
{
    if (QWidget* composer = core::windows().find(core::Window::frmMailSender)) {
        composer->show();
        composer->raise();
        composer->activateWindow();
    }
}

// The composer doesn't ask whether it may go, and neither does anything else.
void endProgram()
{
    core::windows().unload(core::Window::frmConfig);
    core::windows().unload(core::Window::frmMailSender);
    if (const auto end = core::services().endProgram) {
        end();
    }
}

} // namespace

void mail::showMailSetup(const MailSettings& settings, bool firstRun)
{
    core::WindowRegistry& windows = core::windows();
    if (auto* setup = qobject_cast<frmConfig*>(windows.load(core::Window::frmConfig))) {
        setup->fill(settings, firstRun);
        windows.show(core::Window::frmConfig, core::ShowMode::Modal);
    }
}

frmConfig::frmConfig()
    : StripWindow(QStringLiteral("Mail Setup"))
{
    setObjectName(core::windowName(core::Window::frmConfig));
    buildControls();
}

void frmConfig::buildControls()
{
    widgets::FormBuilder form(*this);
    m_server = form.addCaptioned(new QLabel("Mail &server:"), new widgets::FocusField,
                                 "txtServName", "Mail server");
    m_server->setMinimumWidth(kFieldWidth);
    m_port =
        form.addCaptioned(new QLabel("&Port:"), new widgets::FocusField, "txtServPort", "Port");
    m_address = form.addCaptioned(new QLabel("&E-mail address:"), new widgets::FocusField,
                                  "txtMailName", "Your e-mail address");
    if (!core::setting(core::kClassic)) {
        buildSecurity(form);
    }
    form.addButtons({{"cmdOk", "&Ok", [this] { accept(); }, widgets::PressedBy::Return},
                     {"cmdReset", "&Reset", [this] { reset(); }},
                     {"cmdCancel", "&Cancel", [this] { cancel(); }, widgets::PressedBy::Escape}});
}

void frmConfig::buildSecurity(widgets::FormBuilder& form)
{
    m_security = form.addCaptioned(new QLabel("Sec&urity:"), new QComboBox, "cboSecurity",
                                   "Security of the connection");
    widgets::nameDropDown(*m_security, QStringLiteral("Kinds of security"));
    for (const SecurityRow& row : kSecurityRows) {
        m_security->addItem(QString::fromLatin1(row.caption));
    }
    m_security->setPlaceholderText(QStringLiteral("Choose one"));
    m_user = form.addCaptioned(new QLabel("User &name:"), new widgets::FocusField, "txtUser",
                               "User name");
    m_password = form.addCaptioned(new QLabel("Pass&word:"), new widgets::FocusField, "txtPassword",
                                   "Password");
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setPlaceholderText(QStringLiteral("as it is kept, or asked when sending"));
    connect(m_security, &QComboBox::activated, this, &frmConfig::proposePort);
    connect(m_security, &QComboBox::currentIndexChanged, this, &frmConfig::followSecurity);
    followSecurity();
}

void frmConfig::fill(const mail::MailSettings& settings, bool firstRun)
{
    m_firstRun = firstRun;
    m_server->setText(settings.MailServerName);
    m_port->setText(QString::number(settings.MailServerPort));
    m_address->setText(settings.MailFromAddress);
    if (m_security != nullptr) {
        const bool known = settings.security != mail::MailSecurity::Unknown;
        m_security->setCurrentIndex(known ? static_cast<int>(settings.security) : -1);
        m_user->setText(settings.user);
    }
}

void frmConfig::followSecurity()
{
    const bool logsIn = m_security->currentIndex() > 0;
    m_user->setEnabled(logsIn);
    m_password->setEnabled(logsIn);
}

// In the place of another usual one only.
void frmConfig::proposePort(int security)
{
    if (isUsualPort(m_port->text())) {
        m_port->setText(
            QString::fromLatin1(kSecurityRows.at(static_cast<std::size_t>(security)).port));
    }
}

void frmConfig::accept()
{
    const mail::SetupComplaint* complaint =
        mail::complaintAbout({m_server->text(), m_port->text(), m_address->text()});
    if (complaint != nullptr) {
        platform::dialogs().showMessage(QString::fromLatin1(complaint->text),
                                        QString::fromLatin1(complaint->title), complaint->icon);
        return;
    }
    if (!isSecurityWhole()) {
        return;
    }
    store();
    const QPointer<frmConfig> alive = this;
    setEnabled(false); // the keyring may take its time
    keepPassword();
    if (alive == nullptr) {
        return;
    }
    setEnabled(true);
    platform::dialogs().showMessage(
        QStringLiteral("Your new setting will take affect the next time you load the program"),
        QStringLiteral("Finished"), BoxIcon::Information);
    if (alive != nullptr) {
        close();
    }
}

bool frmConfig::isSecurityWhole()
{
    if (m_security == nullptr) {
        return true;
    }
    if (m_security->currentIndex() < 0) {
        return ask(QStringLiteral("Choose how the connection to the mail server is secured."),
                   *m_security);
    }
    const bool isUseless = m_security->currentIndex() > 0 && !m_password->text().isEmpty() &&
                           mail::withoutBlanks(m_user->text()).isEmpty();
    return !isUseless ||
           ask(QStringLiteral("Enter the user name that the password belongs to."), *m_user);
}

bool frmConfig::ask(const QString& text, QWidget& field)
{
    const QPointer<QWidget> alive = &field;
    platform::dialogs().showMessage(text, windowTitle(), BoxIcon::Information);
    if (alive != nullptr) {
        alive->setFocus();
    }
    return false;
}

void frmConfig::store() const
{
    core::store(core::kMailServer, m_server->text());
    core::store(core::kMailPort, m_port->text());
    core::store(core::kMailAddress, m_address->text());
    if (m_security != nullptr) {
        core::store(core::kMailSecurity, m_security->currentIndex());
        core::store(core::kMailUser, m_user->text());
    }
}

// A field that is empty changes nothing: nobody gets to see the password that is kept.
void frmConfig::keepPassword()
{
    if (m_security == nullptr || m_security->currentIndex() == 0 || m_password->text().isEmpty()) {
        return;
    }
    if (!mail::keepPassword(m_server->text(), m_user->text(), m_password->text())) {
        platform::dialogs().showMessage(
            QStringLiteral("This desktop keeps no password for Vistara. You will be asked for it "
                           "each time you send."),
            windowTitle(), BoxIcon::Information);
    }
}

void frmConfig::reset()
{
    for (QLineEdit* field : {m_server, m_port, m_address, m_user, m_password}) {
        if (field != nullptr) {
            field->clear();
        }
    }
    if (m_security != nullptr) {
        m_security->setCurrentIndex(0);
    }
}

void frmConfig::cancel()
{
    if (!m_firstRun) {
        close();
        showComposer();
        return;
    }
    platform::Subject told;
    told.icon = BoxIcon::Information;
    if (platform::dialogs().askYesNo(
            QStringLiteral("You have not set anything up are you sure you want to quit now"),
            QString(), told)) {
        endProgram();
    }
}
