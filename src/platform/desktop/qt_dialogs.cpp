#include "platform/desktop/qt_dialogs.h"

#include "platform/desktop/message_box.h"
#include "platform/desktop/modal_dialog.h"

#include <QColorDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>

namespace platform {

namespace {

constexpr int kTextFieldWidth = 300; // pixels
const QString kColourTitle = QStringLiteral("Select Color");

std::optional<QString> typedText(const QString& label, const QString& title, const QString& initial,
                                 QLineEdit::EchoMode echo)
{
    ModalDialog<QInputDialog> dialog;
    dialog->setInputMode(QInputDialog::TextInput);
    dialog->setTextEchoMode(echo);
    dialog->setWindowTitle(title);
    dialog->setLabelText(label);
    dialog->setTextValue(initial);
    if (auto* const field = dialog->findChild<QLineEdit*>()) {
        field->setMinimumWidth(kTextFieldWidth);
    }
    if (dialog.run() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialog->textValue();
}

} // namespace

void QtDialogs::showMessage(const QString& text, const QString& title, BoxIcon icon)
{
    ModalDialog<MessageBox> box;
    box->setWords(text, title);
    box->setIcon(icon);
    box->addOk();
    static_cast<void>(box.run());
}

bool QtDialogs::askYesNo(const QString& text, const QString& title, const Subject& subject)
{
    ModalDialog<MessageBox> box;
    box->setWords(text, title);
    if (subject.picture.isNull()) {
        box->setIcon(subject.icon);
    } else {
        box->setPicture(subject.picture);
    }
    if (!subject.facts.isEmpty()) {
        box->setFacts(subject.facts);
    }
    box->addYesNo(subject.preset);
    return box.run() == QDialog::Accepted;
}

std::optional<base::Colour> QtDialogs::chooseColour(base::Colour initial)
{
    const base::Colour plain = base::translated(initial);
    ModalDialog<QColorDialog> dialog;
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setWindowTitle(kColourTitle);
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
    return typedText(label, title, initial, QLineEdit::Normal);
}

std::optional<QString> QtDialogs::askPassword(const QString& label, const QString& title)
{
    return typedText(label, title, QString(), QLineEdit::Password);
}

std::optional<QFont> QtDialogs::chooseFont(const QFont& initial)
{
    ModalDialog<QFontDialog> dialog;
    dialog->setOption(QFontDialog::DontUseNativeDialog);
    dialog->setCurrentFont(initial);
    if (dialog.run() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialog->selectedFont();
}

} // namespace platform
