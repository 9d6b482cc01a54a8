#include "platform/qt_dialogs.h"

#include "platform/modal_dialog.h"

#include <QColorDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace platform {

namespace {

QMessageBox::Icon iconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

void prepare(QMessageBox& box, const QString& text, const QString& title)
{
    // Texts hold paths and what servers said, which must not act as markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setWindowTitle(title);
}

} // namespace

void QtDialogs::showMessage(const QString& text, const QString& title, BoxIcon icon)
{
    ModalDialog<QMessageBox> box;
    prepare(*box, text, title);
    box->setIcon(iconOf(icon));
    box->setStandardButtons(QMessageBox::Ok);
    static_cast<void>(box.run());
}

bool QtDialogs::askYesNo(const QString& text, const QString& title)
{
    ModalDialog<QMessageBox> box;
    prepare(*box, text, title);
    box->setIcon(QMessageBox::Question);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::Yes);
    box->setEscapeButton(QMessageBox::No);
    return box.run() == QMessageBox::Yes;
}

std::optional<base::Colour> QtDialogs::chooseColour(base::Colour initial)
{
    const base::Colour plain = base::translated(initial);
    ModalDialog<QColorDialog> dialog;
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setCurrentColor(
        QColor(int(base::redOf(plain)), int(base::greenOf(plain)), int(base::blueOf(plain))));
    if (dialog.run() != QDialog::Accepted) {
        return std::nullopt;
    }
    const QColor chosen = dialog->selectedColor();
    return base::rgb(unsigned(chosen.red()), unsigned(chosen.green()), unsigned(chosen.blue()));
}

std::optional<QString> QtDialogs::askText(const QString& label, const QString& title,
                                          const QString& initial)
{
    ModalDialog<QInputDialog> dialog;
    dialog->setInputMode(QInputDialog::TextInput);
    dialog->setWindowTitle(title);
    dialog->setLabelText(label);
    dialog->setTextValue(initial);
    if (dialog.run() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialog->textValue();
}

} // namespace platform
