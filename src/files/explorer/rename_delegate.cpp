#include "files/explorer/rename_delegate.h"

#include "files/explorer/wrapped_name.h"

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QStyle>
#include <algorithm>
#include <utility>

namespace files {

namespace {

// Styles that wrap a text by themselves begin lines that have no room.
void wrapText(QStyleOptionViewItem& option)
{
    const QStyle& style = *option.widget->style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    const QSize room =
        style.subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget).size();
    const int lines = std::max(1, room.height() / option.fontMetrics.height());
    option.text = wrappedName(option.text, option.font, room.width() - 2 * margin, lines);
    option.features.setFlag(QStyleOptionViewItem::WrapText, false);
}

} // namespace

RenameDelegate::RenameDelegate(Begin begin, End end, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_begin(std::move(begin))
    , m_end(std::move(end))
{
}

void RenameDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    if (shown.features.testFlag(QStyleOptionViewItem::WrapText)) {
        wrapText(shown);
    }
    shown.widget->style()->drawControl(QStyle::CE_ItemViewItem, &shown, painter, shown.widget);
}

QWidget* RenameDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    QWidget* const editor =
        m_begin() ? QStyledItemDelegate::createEditor(parent, option, index) : nullptr;
    if (editor != nullptr) {
        editor->setAccessibleName(tr("Name"));
    }
    return editor;
}

// Whoever is told may list the folder anew, and the item is gone.
void RenameDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                  const QModelIndex& index) const
{
    const auto* const field = qobject_cast<QLineEdit*>(editor);
    if (field == nullptr) {
        return;
    }
    const QPersistentModelIndex item(index);
    const QString name = field->text();
    if (m_end(name) && item.isValid()) {
        model->setData(item, name, Qt::EditRole);
    }
}

// One line, as high as it needs to be.
void RenameDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const
{
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    editor->resize(editor->width(),
                   std::max(editor->sizeHint().height(), option.fontMetrics.height()));
}

} // namespace files
