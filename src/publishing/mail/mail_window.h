#pragma once

#include "publishing/mail/mail_document.h"
#include "publishing/mail/smtp_client.h"
#include "widgets/strip_window.h"

#include <array>
#include <memory>

class QCheckBox;
class QLabel;
class QLineEdit;
class chameleonButton;

namespace mail {
class HtmlEditor;
}
namespace widgets {
class FormBuilder;
}

// Writes a mail, keeps it in a document file, and sends it. When it opens it reads the mail
// settings; without a settings file it asks for them first.
class frmMailSender : public widgets::StripWindow, private mail::SendingStatus {
    Q_OBJECT

public:
    static constexpr int kFields = 3;  // To, From, Subject
    static constexpr int kButtons = 7; // Send, Open, Save, cut, copy, paste, setup

    frmMailSender();
    ~frmMailSender() override;

    // The field that was entered last, by its number; kFields is the editor.
    [[nodiscard]] int ActiveField() const { return m_activeField; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct Marked { // a selection
        int start = -1;
        int length = 0;
    };

    void buildControls();
    void addToolbar(widgets::FormBuilder& form);
    void addFields(widgets::FormBuilder& form);
    void addFormatting(widgets::FormBuilder& form);
    void addStatus(widgets::FormBuilder& form);
    void addKeys();
    void load();
    void introduceSetup();
    void openSetup();

    void pressButton(int index);
    void send();
    [[nodiscard]] bool hasRecipient();
    [[nodiscard]] bool takePassword();
    void letSend(bool on);
    void openDocument();
    void showDocument(const mail::DocumentRecords& records);
    void saveDocument();
    [[nodiscard]] bool isReadyToSave();
    void trimFields();
    void writeDocument(const QString& path);
    void cut();
    void copy();
    void paste();
    QLineEdit& markedField();

    void offerPicture();
    [[nodiscard]] bool isChanged() const;
    void setUnchanged();
    [[nodiscard]] bool mayDiscard();

    void showStatus(const QString& text) override;
    void showBusy(bool busy) override;

    std::array<QLineEdit*, kFields> m_txtMail{};
    std::array<Marked, kFields> m_marked{}; // of those that lost the focus
    std::array<chameleonButton*, kButtons> m_toolbar{};
    mail::HtmlEditor* m_editor = nullptr;
    QCheckBox* m_attach = nullptr; // hidden where nothing can be attached
    QString m_picture;             // what it attaches
    QLabel* m_imgstatus = nullptr;
    QLabel* m_lblStatus = nullptr;
    std::array<QLabel*, 2> m_image1{}; // the pictures of imgstatus: idle, busy
    std::unique_ptr<mail::SmtpClient> m_client;
    int m_activeField = 0;
    bool m_firstRun = false; // MailFirstRun
    bool m_introduced = false;
};
