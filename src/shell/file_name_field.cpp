#include "shell/file_name_field.h"

#include "platform/delivered_icon.h"
#include "widgets/window_parts.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>

namespace shell {

namespace {

constexpr int kPopupFrame = 8; // pixels around the list, both sides together

} // namespace

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
    const QIcon light = platform::deliveredIcon(QStringLiteral("stoplight"));
    for (qsizetype i = 0; i < paths.size(); ++i) {
        addItem(light, paths.at(i), QStringLiteral("Signal%1").arg(i));
    }
    setCurrentIndex(-1);
    setEditText(text);
}

// Paths are longer than the field; each is shown in full where the screen has the room.
void FileNameField::showPopup()
{
    QAbstractItemView& list = *view();
    const QRect screenArea = screen()->availableGeometry();
    const int bar = list.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &list);
    const int wanted = list.sizeHintForColumn(0) + bar + kPopupFrame;
    QWidget& popup = *list.parentWidget();
    popup.setMinimumWidth(std::min(wanted, screenArea.width()));
    QComboBox::showPopup();
    const int beyond = popup.frameGeometry().right() - screenArea.right();
    if (beyond > 0) {
        popup.move(std::max(screenArea.left(), popup.x() - beyond), popup.y());
    }
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
