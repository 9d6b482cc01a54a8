#pragma once

#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>

namespace platform {

// Gives a dialog its frame, which closes and does nothing else, and takes the icons from the
// buttons that answer it. Some desktops put icons there, and others don't have them.
void simplifyDialog(QDialog& dialog);

// A dialog of one question, over the active window and under the default pointer. It may go away
// while it is shown, with that window; then there is no answer. beginClosing() cancels it. Used
// inside this folder only.
template<typename Dialog> class ModalDialog {
public:
    ModalDialog()
        : m_dialog(new Dialog(QApplication::activeWindow()))
    {
    }
    ~ModalDialog() { delete m_dialog; }
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    Dialog* operator->() const { return m_dialog; }
    Dialog& operator*() const { return *m_dialog; }

    // The dialog's result; Rejected, without showing it, in a program that closes already.
    [[nodiscard]] int run()
    {
        if (isClosing()) {
            return QDialog::Rejected;
        }
        simplifyDialog(*m_dialog);
        const PointerPause pause;
        const int result = m_dialog->exec();
        return m_dialog != nullptr ? result : int(QDialog::Rejected);
    }

private:
    QPointer<Dialog> m_dialog;
};

// Cancels every modal dialog that is shown.
void cancelModalDialogs();

} // namespace platform
