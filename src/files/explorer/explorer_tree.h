#pragma once

#include "files/explorer/explorer_events.h"
#include "files/explorer/places.h"
#include "files/explorer/tree_node.h"

#include <QString>
#include <memory>
#include <vector>

namespace files {

// Told before and after nodes come and go, for a view. The parent is null for the root node.
class TreeWatcher {
public:
    virtual ~TreeWatcher() = default;

    virtual void aboutToInsert(TreeNode* parent, int first, int count) = 0;
    virtual void inserted() = 0;
    virtual void aboutToRemove(TreeNode* parent, int first, int count) = 0;
    virtual void removed() = 0;
};

// The folder tree as plain nodes. A branch is read when it is expanded and thrown away when it is
// collapsed, so that it is read anew each time. Nothing is shown here.
class ExplorerTree {
public:
    ExplorerTree(const Places& places, PopulationEvents& events);

    // Null for none; it must outlive the tree or be taken away again.
    void setWatcher(TreeWatcher* watcher) { m_watcher = watcher; }

    // Puts work space, drives and the places that aren't hidden into an empty tree, the folders of
    // the path below the drive whose key it is; a tree that has nodes stays as it is.
    void LoadTreeRoots(const QString& path, const HiddenPlaces& hidden);
    void Clear();

    // Null while the tree is empty.
    [[nodiscard]] TreeNode* root() const { return m_root.get(); }

    // As the user does it in a view; a node that is expanded already stays as it is.
    void expand(TreeNode& node);
    void collapse(TreeNode& node);

    // Expands and selects from drive to folder each first node whose key, without regard to case,
    // is what the path begins with; so "/data" is on the way to "/data2". Gives the selected node.
    TreeNode* ExpandToPath(const QString& path);

    // A selected node that is thrown away hands over to the one that stays above it.
    [[nodiscard]] TreeNode* selected() const { return m_selected; }
    void select(TreeNode* node) { m_selected = node; }

    // Placeholders count. Nodes by one-based number from the top down, null outside.
    [[nodiscard]] int nodeCount() const;
    [[nodiscard]] TreeNode* nodeAt(int index) const;

    // Hangs a node with its key and all below it under another one, and gives the line that says
    // so; "", and nothing is moved, where that lies within it. Nothing on the disk changes.
    QString moveUnder(TreeNode& node, TreeNode& target);

    // Set, the next branch that is expanded stays unread, and its parent is collapsed.
    bool SkipNextExpand = false;

private:
    using Nodes = std::vector<std::unique_ptr<TreeNode>>;
    class Kept;

    void LoadSubFolders(const QString& path, TreeNode* node);
    [[nodiscard]] Nodes readBranch(const QString& path, const TreeNode* node);
    void addPlace(TreeNode& parent, const PlaceRow& place, NodeTag tag, bool withPlaceholder);
    void append(TreeNode& parent, Nodes nodes);
    Nodes take(TreeNode& parent, int first, int count);
    void remove(TreeNode& parent, int first, int count);
    void forget(const TreeNode& gone, TreeNode* heir);
    void tellExpanded(const QString& key);
    void tellCollapsed(const QString& key);

    const Places& m_places;
    PopulationEvents& m_events;
    TreeWatcher* m_watcher = nullptr;
    std::unique_ptr<TreeNode> m_root;
    TreeNode* m_selected = nullptr;
    std::vector<TreeNode*> m_kept; // nodes that functions under way come back to; null once gone
};

} // namespace files
