#pragma once

#include "files/explorer/explorer_images.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

namespace files {

// Whether a branch has been read. A node that was never given a tag isn't read by expanding it.
enum class NodeTag : std::uint8_t { None, Unloaded, Loaded };

// What a node's key is made of.
enum class NodeKey : std::uint8_t {
    Own,               // it stands in ownKey
    Folder,            // the parent's key and the text
    PlacePlaceholder,  // the parent's key and "_empty_child"
    FolderPlaceholder, // the parent's key and a bell
};

// A node of the folder tree. Keys are unique among siblings. A placeholder stands for a branch that
// hasn't been read, so that its parent can be expanded.
struct TreeNode {
    [[nodiscard]] QString key() const;
    [[nodiscard]] bool isPlaceholder() const
    {
        return keyKind == NodeKey::PlacePlaceholder || keyKind == NodeKey::FolderPlaceholder;
    }

    // The next one among its siblings; null for the last.
    [[nodiscard]] TreeNode* nextSibling() const;

    // Whether a node is this one or stands below it.
    [[nodiscard]] bool holds(const TreeNode& node) const;

    // Itself and all nodes below it.
    [[nodiscard]] int countAll() const;

    // These leave the key as it is, under another text or another parent.
    void setText(const QString& newText);
    void keepKey();

    QString text = {};
    QString ownKey = {};
    TreeNode* parent = nullptr;
    std::vector<std::unique_ptr<TreeNode>> children = {};
    int row = 0; // among its siblings
    NodeKey keyKind = NodeKey::Own;
    ImageRole image = ImageRole::Folder;
    NodeTag tag = NodeTag::None;
    bool isExpanded = false;
    bool isChecked = false;
};

} // namespace files
