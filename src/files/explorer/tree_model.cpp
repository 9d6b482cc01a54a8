#include "files/explorer/tree_model.h"

namespace files {

TreeModel::TreeModel(ExplorerTree& tree, QObject* parent)
    : QAbstractItemModel(parent)
    , m_tree(tree)
{
    m_tree.setWatcher(this);
}

TreeModel::~TreeModel()
{
    m_tree.setWatcher(nullptr);
}

TreeNode* TreeModel::nodeOf(const QModelIndex& index)
{
    return static_cast<TreeNode*>(index.internalPointer());
}

QModelIndex TreeModel::indexOf(const TreeNode* node) const
{
    return node != nullptr ? createIndex(node->row, 0, node) : QModelIndex();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    const TreeNode* const above = nodeOf(parent);
    return indexOf(above != nullptr ? above->children[static_cast<std::size_t>(row)].get()
                                    : m_tree.root());
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
    const TreeNode* const node = nodeOf(index);
    return node != nullptr ? indexOf(node->parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    if (const TreeNode* const node = nodeOf(parent)) {
        return static_cast<int>(node->children.size());
    }
    return m_tree.root() != nullptr ? 1 : 0;
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    const TreeNode* const node = nodeOf(index);
    if (node == nullptr) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return shownText(node->text);
    case Qt::EditRole:
        return node->text;
    case Qt::DecorationRole:
        return m_pictures ? m_pictures(node->image, node->key()) : QVariant();
    case Qt::CheckStateRole:
        if (!m_hasCheckBoxes) {
            return {};
        }
        return node->isChecked ? Qt::Checked : Qt::Unchecked;
    case KeyRole:
        return node->key();
    case PictureRole:
        return static_cast<int>(node->image);
    case TagRole:
        return static_cast<int>(node->tag);
    default:
        return {};
    }
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (index.isValid()) {
        flags |= Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
        flags.setFlag(Qt::ItemIsUserCheckable, m_hasCheckBoxes);
    }
    return flags;
}

bool TreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    TreeNode* const node = nodeOf(index);
    const bool isMark = role == Qt::CheckStateRole;
    if (node == nullptr || (!isMark && role != Qt::EditRole)) {
        return false;
    }
    if (isMark) {
        node->isChecked = value.toInt() == Qt::Checked;
    } else {
        node->setText(value.toString());
    }
    emit dataChanged(index, index, {role});
    return true;
}

void TreeModel::aboutToInsert(TreeNode* parent, int first, int count)
{
    beginInsertRows(indexOf(parent), first, first + count - 1);
}

void TreeModel::inserted()
{
    endInsertRows();
}

void TreeModel::aboutToRemove(TreeNode* parent, int first, int count)
{
    beginRemoveRows(indexOf(parent), first, first + count - 1);
}

void TreeModel::removed()
{
    endRemoveRows();
}

} // namespace files
