#pragma once

#include "widgets/strip_window.h"

class QComboBox;
class QLineEdit;

namespace mail {

struct MailSettings;

// Opens the mail setup with the values given, which it doesn't change: what is stored counts from
// the next time that the composer opens. Left on a first run, it may end the program. Returns when
// it was closed.
void showMailSetup(const MailSettings& settings, bool firstRun);

} // namespace mail

namespace widgets {
class FormBuilder;
}

// Server, port and sender's address of the mail, and outside classic mode how the connection is
// secured and who logs in.
class frmConfig : public widgets::StripWindow {
    Q_OBJECT

public:
    frmConfig();

    void fill(const mail::MailSettings& settings, bool firstRun);

private:
    void buildControls();
    void buildSecurity(widgets::FormBuilder& form);
    void followSecurity();
    void proposePort(int security);
    void accept();
    [[nodiscard]] bool isSecurityWhole();
    [[nodiscard]] bool ask(const QString& text, QWidget& field); // for what the field lacks; false
    void store() const;
    void keepPassword();
    void reset();
    void cancel();

    QLineEdit* m_server = nullptr;
    QLineEdit* m_port = nullptr;
    QLineEdit* m_address = nullptr;
    QComboBox* m_security = nullptr; // null in classic mode, and so are the two below
    QLineEdit* m_user = nullptr;
    QLineEdit* m_password = nullptr;
    bool m_firstRun = false; // MailFirstRun
};
