#pragma once

#include <QStyledItemDelegate>
#include <functional>

namespace files {

// Shows a name, and lets it be edited in its place. Whether it may be, and whether the new name is
// shown, is decided elsewhere; no file is renamed.
class RenameDelegate : public QStyledItemDelegate {
public:
    using Begin = std::function<bool()>;                  // false: it isn't edited
    using End = std::function<bool(const QString& name)>; // false: the old name stays

    RenameDelegate(Begin begin, End end, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    Begin m_begin;
    End m_end;
};

} // namespace files
