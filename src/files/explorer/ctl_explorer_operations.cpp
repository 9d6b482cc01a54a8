#include "files/explorer/ctl_explorer.h"
#include "platform/desktop/dialogs.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>

namespace {

bool isColumn(int index)
{
    return index >= 1 && index <= files::kListColumns;
}

int checkedBelow(const files::TreeNode& node)
{
    int count = node.isChecked ? 1 : 0;
    for (const auto& child : node.children) {
        count += checkedBelow(*child);
    }
    return count;
}

} // namespace

std::optional<std::int32_t> ctlExplorer::ColumnWidth(int index) const
{
    return isColumn(index) ? std::optional(m_listView.reportWidth(index - 1)) : std::nullopt;
}

bool ctlExplorer::setColumnWidth(int index, std::int32_t pixels)
{
    if (!isColumn(index)) {
        return false;
    }
    m_listView.setReportWidth(index - 1, pixels);
    return true;
}

void ctlExplorer::ColumnsAutoSize(int index)
{
    if (m_values.View == files::kReportView && isColumn(index)) {
        m_listView.fitColumn(index - 1);
    }
}

QString ctlExplorer::SelectedFile() const
{
    const QModelIndexList selected = m_listView.selectionModel()->selectedRows();
    if (!isList() || selected.isEmpty()) {
        return {};
    }
    const int row = selected.first().row();
    const bool isFolder = m_listModel.rows().tag(row) == files::RowTag::Folder;
    return isFolder ? QString() : m_listModel.rows().key(row);
}

QString ctlExplorer::SelectedFolder() const
{
    if (isTree()) {
        return m_tree.selected() != nullptr ? m_tree.selected()->key() : QString();
    }
    const QModelIndexList selected = m_listView.selectionModel()->selectedRows();
    if (!isList() || selected.isEmpty()) {
        return {};
    }
    const int row = selected.first().row();
    const bool isFolder = m_listModel.rows().tag(row) == files::RowTag::Folder;
    return isFolder ? m_listModel.rows().key(row) : QString();
}

std::int32_t ctlExplorer::FileCount() const
{
    return m_listModel.rows().count();
}

std::int32_t ctlExplorer::ColumnCount() const
{
    return files::kListColumns;
}

bool ctlExplorer::hasItem(int index) const
{
    return index >= 1 && index <= FileCount();
}

bool ctlExplorer::FileChecked(int index) const
{
    return hasItem(index) && m_listModel.rows().isChecked(index - 1);
}

void ctlExplorer::setFileChecked(int index, bool checked)
{
    if (hasItem(index)) {
        const QScopedValueRollback<bool> following(m_isFollowing, true);
        m_listModel.setData(m_listModel.index(index - 1, 0), checked ? Qt::Checked : Qt::Unchecked,
                            Qt::CheckStateRole);
    }
}

bool ctlExplorer::FileSelected(int index) const
{
    return hasItem(index) && m_listView.selectionModel()->isRowSelected(index - 1, {});
}

void ctlExplorer::setFileSelected(int index, bool selected)
{
    if (!hasItem(index)) {
        return;
    }
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    QItemSelectionModel::SelectionFlags command = QItemSelectionModel::Rows;
    command |= selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect;
    if (selected && !m_values.MultiSelect) {
        command |= QItemSelectionModel::Clear;
    }
    m_listView.selectionModel()->select(m_listModel.index(index - 1, 0), command);
}

bool ctlExplorer::FolderChecked(int index) const
{
    const files::TreeNode* const node = m_tree.nodeAt(index);
    return node != nullptr && node->isChecked;
}

void ctlExplorer::setFolderChecked(int index, bool checked)
{
    if (const files::TreeNode* const node = m_tree.nodeAt(index)) {
        const QScopedValueRollback<bool> following(m_isFollowing, true);
        m_treeModel.setData(m_treeModel.indexOf(node), checked ? Qt::Checked : Qt::Unchecked,
                            Qt::CheckStateRole);
    }
}

std::int32_t ctlExplorer::FileIndex(const QString& key) const
{
    return m_listModel.rows().indexOf(key) + 1;
}

std::int32_t ctlExplorer::SelectedCount() const
{
    if (isTree()) {
        return m_tree.selected() != nullptr ? 1 : 0;
    }
    return isList() ? static_cast<std::int32_t>(m_listView.selectionModel()->selectedRows().size())
                    : 0;
}

std::int32_t ctlExplorer::CheckedCount() const
{
    if (isTree()) {
        return m_tree.root() != nullptr ? checkedBelow(*m_tree.root()) : 0;
    }
    return isList() ? m_listModel.rows().checkedCount() : 0;
}

std::int32_t ctlExplorer::FolderCount() const
{
    if (isTree()) {
        return m_tree.nodeCount();
    }
    return isList() ? m_listModel.rows().countOf(files::RowTag::Folder) : 0;
}

std::int32_t ctlExplorer::SubFolderCount() const
{
    const bool hasNode = isTree() && m_tree.selected() != nullptr;
    return hasNode ? static_cast<std::int32_t>(m_tree.selected()->children.size()) : 0;
}

void ctlExplorer::AboutBox()
{
    platform::dialogs().showMessage(
        QStringLiteral("Control to show files and folder like Windows Explorer.\r\n"),
        QStringLiteral("ctlExplorer"), platform::BoxIcon::Information);
}
