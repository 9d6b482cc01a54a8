#include "platform/desktop/modal_dialog.h"

#include <QAbstractButton>
#include <QDialogButtonBox>

namespace platform {

void simplifyDialog(QDialog& dialog)
{
    dialog.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint);
    for (const QDialogButtonBox* const box : dialog.findChildren<QDialogButtonBox*>()) {
        for (QAbstractButton* const button : box->buttons()) {
            button->setIcon(QIcon());
        }
    }
}

void cancelModalDialogs()
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
        return;
    }
    // A menu of a dialog's field keeps the dialog from ending.
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->hide();
    }
    QList<QPointer<QDialog>> shown;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        auto* const dialog = qobject_cast<QDialog*>(window);
        if (dialog != nullptr && dialog->isVisible() && dialog->isModal()) {
            shown.append(dialog);
        }
    }
    // The end of one may end others.
    for (const QPointer<QDialog>& dialog : shown) {
        if (dialog != nullptr) {
            dialog->reject();
        }
    }
}

} // namespace platform
