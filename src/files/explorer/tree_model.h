#pragma once

#include "files/explorer/explorer_tree.h"
#include "files/explorer/model_roles.h"

#include <QAbstractItemModel>

namespace files {

// The nodes of a folder tree for a view, which follows as they come and go. A view that expands or
// collapses an index tells the tree so.
class TreeModel : public QAbstractItemModel, private TreeWatcher {
public:
    // The tree outlives the model and is watched by nobody else.
    explicit TreeModel(ExplorerTree& tree, QObject* parent = nullptr);
    ~TreeModel() override;
    TreeModel(const TreeModel&) = delete;
    TreeModel& operator=(const TreeModel&) = delete;

    // Null for an index that isn't valid, and the other way round.
    [[nodiscard]] static TreeNode* nodeOf(const QModelIndex& index);
    [[nodiscard]] QModelIndex indexOf(const TreeNode* node) const;

    void setPictures(PictureSource pictures) { m_pictures = std::move(pictures); }
    void setCheckBoxes(bool shown) { m_hasCheckBoxes = shown; }

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Takes check marks, and other texts for the nodes; no folder is renamed.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    void aboutToInsert(TreeNode* parent, int first, int count) override;
    void inserted() override;
    void aboutToRemove(TreeNode* parent, int first, int count) override;
    void removed() override;

    ExplorerTree& m_tree;
    PictureSource m_pictures;
    bool m_hasCheckBoxes = false;
};

} // namespace files
