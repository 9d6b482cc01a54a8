#include "shell/file_name_field.h"

#include "widgets/window_parts.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace shell {

FileNameField::FileNameField(QWidget* parent)
    : QComboBox(parent)
{
    setObjectName(QStringLiteral("Xiala"));
    setAccessibleName(QStringLiteral("File name"));
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(20);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(12);
    lineEdit()->setAccessibleName(QStringLiteral("File name"));
    widgets::nameDropDown(*this, QStringLiteral("Recent paths"));
    // Else leaving the field would choose the entry that its text happens to equal.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(this, &QComboBox::activated, this, [this] { emit chosen(); });
}

void FileNameField::setRecentPaths(const QStringList& paths)
{
    const QSignalBlocker quiet(this);
    const QString text = currentText();
    clear();
    for (qsizetype i = 0; i < paths.size(); ++i) {
        addItem(paths.at(i), QStringLiteral("Signal%1").arg(i));
    }
    setCurrentIndex(-1);
    setEditText(text);
}

void FileNameField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        emit entered();
        return;
    }
    QComboBox::keyPressEvent(event);
}

// A turn over a field without the focus is meant for the pictures.
void FileNameField::wheelEvent(QWheelEvent* event)
{
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

} // namespace shell
