#include "files/explorer/tree_node.h"

#include "platform/os/paths.h"

#include <numeric>

namespace files {

QString TreeNode::key() const
{
    switch (keyKind) {
    case NodeKey::Folder:
        return platform::joinPath(parent->key(), text);
    case NodeKey::PlacePlaceholder:
        return parent->key() + QStringLiteral("_empty_child");
    case NodeKey::FolderPlaceholder:
        return parent->key() + u'\a';
    case NodeKey::Own:
        break;
    }
    return ownKey;
}

void TreeNode::setText(const QString& newText)
{
    keepKey();
    text = newText;
}

void TreeNode::keepKey()
{
    ownKey = key();
    keyKind = NodeKey::Own;
}

TreeNode* TreeNode::nextSibling() const
{
    if (parent == nullptr) {
        return nullptr;
    }
    const auto next = static_cast<std::size_t>(row) + 1;
    return next < parent->children.size() ? parent->children[next].get() : nullptr;
}

bool TreeNode::holds(const TreeNode& node) const
{
    for (const TreeNode* place = &node; place != nullptr; place = place->parent) {
        if (place == this) {
            return true;
        }
    }
    return false;
}

int TreeNode::countAll() const
{
    return std::accumulate(children.begin(), children.end(), 1,
                           [](int count, const auto& child) { return count + child->countAll(); });
}

} // namespace files
