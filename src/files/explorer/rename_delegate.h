#pragma once

#include <QStyledItemDelegate>
#include <functional>

namespace files {

// Lets a name be edited in its place. What becomes of the new name is decided elsewhere: neither
// the model nor a file changes.
class RenameDelegate : public QStyledItemDelegate {
public:
    using Begin = std::function<bool()>; // false: it isn't edited
    using End = std::function<void(const QString& name)>;

    RenameDelegate(Begin begin, End end, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

private:
    Begin m_begin;
    End m_end;
};

} // namespace files
