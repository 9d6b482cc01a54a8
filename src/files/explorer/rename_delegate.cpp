#include "files/explorer/rename_delegate.h"

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <algorithm>
#include <utility>

namespace files {

RenameDelegate::RenameDelegate(Begin begin, End end, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_begin(std::move(begin))
    , m_end(std::move(end))
{
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
