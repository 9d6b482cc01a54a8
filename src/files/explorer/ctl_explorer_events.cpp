#include "files/explorer/ctl_explorer.h"
#include "files/explorer/root_keys.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <utility>

namespace {

bool isCheck(const QList<int>& roles)
{
    return roles.contains(Qt::CheckStateRole);
}

} // namespace

// The current item is told where it changes. Under the mouse it becomes the current one before it
// is selected, so a press tells it a moment later, when a handler finds it chosen and may list
// another folder.
void ctlExplorer::connectChoice(files::ExplorerView& view, void (ctlExplorer::*tell)())
{
    const auto tellChoice = [this, tell] {
        m_isTold = true;
        (this->*tell)();
    };
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, &view, tellChoice] {
                if (m_isFollowing || view.isTakingFocus()) {
                    return;
                }
                m_isChosen = view.isTakingPress();
                if (!m_isChosen) {
                    tellChoice();
                }
            });
    connect(&view, &QTreeView::pressed, this, [this, tellChoice] {
        if (std::exchange(m_isChosen, false)) {
            tellChoice();
        }
    });
}

void ctlExplorer::connectTree()
{
    connect(&m_treeView, &QTreeView::expanded, this, &ctlExplorer::expandNode);
    connect(&m_treeView, &QTreeView::collapsed, this, &ctlExplorer::collapseNode);
    connectChoice(m_treeView, &ctlExplorer::tellNode);
    connect(&m_treeView, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        const QPersistentModelIndex node(index);
        if (!std::exchange(m_isTold, false)) {
            tellNode();
        }
        emit Click();
        m_treeView.clickBranch(node);
    });
    connect(&m_treeView, &QTreeView::doubleClicked, this, &ctlExplorer::DblClick);
    connect(&m_treeModel, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& index, const QModelIndex&, const QList<int>& roles) {
                if (isCheck(roles) && !m_isFollowing) {
                    tellNodeCheck(index);
                }
            });
    connectInput(m_treeView);
}

void ctlExplorer::connectList()
{
    connectChoice(m_listView, &ctlExplorer::tellItem);
    connect(&m_listView, &QTreeView::clicked, this, [this] {
        if (!std::exchange(m_isTold, false)) {
            tellItem();
        }
        emit Click();
    });
    connect(&m_listView, &QTreeView::doubleClicked, this, &ctlExplorer::tellItemDoubleClick);
    connect(&m_listModel, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& index, const QModelIndex&, const QList<int>& roles) {
                if (isCheck(roles) && !m_isFollowing) {
                    tellItemCheck(index);
                }
            });
    m_listView.onEntered([this](const QModelIndex& index) { tellItemDoubleClick(index); });
    connect(m_listView.header(), &QHeaderView::sectionClicked, this,
            [this](int section) { emit ColumnClick(section + 1); });
    connectInput(m_listView);
}

void ctlExplorer::expandNode(const QModelIndex& index)
{
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    m_tree.expand(*files::TreeModel::nodeOf(index));
}

void ctlExplorer::collapseNode(const QModelIndex& index)
{
    {
        const QScopedValueRollback<bool> following(m_isFollowing, true);
        m_tree.collapse(*files::TreeModel::nodeOf(index));
    }
    followSelection();
}

// Opens the view's branches as the nodes at the top and on the way to the selected one stand.
void ctlExplorer::showNodes()
{
    if (m_tree.root() == nullptr) {
        return;
    }
    {
        const QScopedValueRollback<bool> following(m_isFollowing, true);
        const files::TreeNode* const selected = m_tree.selected();
        const files::TreeNode* node = selected != nullptr ? selected : m_tree.nodeAt(2);
        for (; node != nullptr; node = node->parent) {
            m_treeView.setExpanded(m_treeModel.indexOf(node), node->isExpanded);
        }
    }
    followSelection();
}

void ctlExplorer::followSelection()
{
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    const QModelIndex selected = m_treeModel.indexOf(m_tree.selected());
    m_treeView.setCurrentIndex(selected);
    if (selected.isValid()) {
        m_treeView.scrollTo(selected);
    }
}

void ctlExplorer::tellNode()
{
    files::TreeNode* const node = files::TreeModel::nodeOf(m_treeView.currentIndex());
    m_tree.select(node);
    if (node == nullptr) {
        return;
    }
    const QString key = node->key();
    if (!files::isRootKey(key)) {
        emit FolderClick(key);
        emit Change();
        return;
    }
    for (const std::int16_t type : files::rootTypesOf(key)) {
        emit RootClick(type);
    }
}

void ctlExplorer::tellItem()
{
    const int row = m_listView.currentIndex().row();
    if (row < 0) {
        return;
    }
    const QString key = m_listModel.rows().key(row);
    if (m_listModel.rows().tag(row) == files::RowTag::Folder) {
        emit FolderClick(key);
    } else {
        emit FileClick(key);
    }
}

// A handler of the first event may show other rows, so what the second one tells is read before.
void ctlExplorer::tellItemDoubleClick(const QModelIndex& index)
{
    const QString key = m_listModel.rows().key(index.row());
    const files::RowTag tag = m_listModel.rows().tag(index.row());
    emit DblClick();
    switch (tag) {
    case files::RowTag::Folder:
        emit FolderDblClick(key);
        break;
    case files::RowTag::File:
        emit FileDblClick(key);
        break;
    case files::RowTag::Root:
        emit RootDblClick(files::clickedRootType(key));
        break;
    }
}

void ctlExplorer::tellNodeCheck(const QModelIndex& index)
{
    const files::TreeNode& node = *files::TreeModel::nodeOf(index);
    const QString key = node.key();
    const bool isChecked = node.isChecked;
    if (files::isRootKey(key)) {
        for (const std::int16_t type : files::rootTypesOf(key)) {
            emit RootCheck(type, isChecked);
        }
    } else {
        emit FolderCheck(key, isChecked);
    }
    emit Change();
}

void ctlExplorer::tellItemCheck(const QModelIndex& index)
{
    const files::ListRows& rows = m_listModel.rows();
    emit FileCheck(rows.key(index.row()), rows.isChecked(index.row()));
}
