#include "files/explorer/rename_delegate.h"

#include <QLineEdit>
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
    return m_begin() ? QStyledItemDelegate::createEditor(parent, option, index) : nullptr;
}

void RenameDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                                  const QModelIndex& /*index*/) const
{
    if (const auto* const field = qobject_cast<QLineEdit*>(editor)) {
        m_end(field->text());
    }
}

} // namespace files
