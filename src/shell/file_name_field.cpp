#include "shell/file_name_field.h"

#include "platform/pictures/delivered_icon.h"
#include "widgets/window_parts.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>

namespace shell {

namespace {

constexpr int kPopupFrame = 8;       // pixels around the list, both sides together
constexpr int kMeasuredPaths = 1000; // the newest; lists may be a hundred times as long

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
    if (auto* list = qobject_cast<QListView*>(view())) {
        list->setUniformItemSizes(true); // else a long list takes seconds to open
    }
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
    if (m_light.isNull()) {
        m_light = platform::deliveredIcon(QStringLiteral("stoplight"));
    }
    for (qsizetype i = 0; i < paths.size(); ++i) {
        addItem(m_light, paths.at(i), QStringLiteral("Signal%1").arg(i));
    }
    setCurrentIndex(-1);
    setEditText(text);
}

int FileNameField::widestEntry() const
{
    if (count() == 0) {
        return 0;
    }
    const QFontMetrics metrics = view()->fontMetrics();
    int widest = 0;
    for (int i = std::max(0, count() - kMeasuredPaths); i < count(); ++i) {
        widest = std::max(widest, metrics.horizontalAdvance(itemText(i)));
    }
    const QModelIndex first = model()->index(0, modelColumn());
    const int besideText =
        view()->sizeHintForIndex(first).width() - metrics.horizontalAdvance(itemText(0));
    return widest + besideText;
}

// Paths are longer than the field; each is shown in full where the screen has the room.
void FileNameField::showPopup()
{
    QAbstractItemView& list = *view();
    const QRect screenArea = screen()->availableGeometry();
    const int bar = list.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &list);
    const int wanted = widestEntry() + bar + kPopupFrame;
    QWidget& popup = *list.parentWidget();
    popup.setMinimumWidth(std::min(wanted, screenArea.width() - kPopupFrame));
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
