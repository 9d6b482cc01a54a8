#include "files/explorer/explorer_tree.h"

#include "files/explorer/percent.h"
#include "files/explorer/root_keys.h"
#include "platform/os/paths.h"
#include "platform/os/subfolders.h"

#include <QSet>
#include <algorithm>
#include <iterator>
#include <utility>

namespace files {

namespace {

std::unique_ptr<TreeNode> placeholder(NodeKey kind)
{
    auto node = std::make_unique<TreeNode>();
    node->keyKind = kind;
    return node;
}

// A child of a node that isn't in a tree yet.
void hang(TreeNode& parent, std::unique_ptr<TreeNode> child)
{
    child->parent = &parent;
    child->row = static_cast<int>(parent.children.size());
    parent.children.push_back(std::move(child));
}

std::unique_ptr<TreeNode> placeNode(const PlaceRow& place)
{
    auto node = std::make_unique<TreeNode>();
    node->text = place.text;
    node->ownKey = place.key;
    node->image = place.image;
    return node;
}

std::unique_ptr<TreeNode> folderNode(const QString& folder, const QString& name, ImageRole image)
{
    auto node = std::make_unique<TreeNode>();
    node->text = name;
    node->keyKind = NodeKey::Folder;
    node->image = image;
    if (platform::hasVisibleSubfolder(platform::joinPath(folder, name), platform::Look::Thorough)) {
        node->tag = NodeTag::Unloaded;
        hang(*node, placeholder(NodeKey::FolderPlaceholder));
    }
    return node;
}

QSet<QString> childKeys(const TreeNode& node)
{
    QSet<QString> keys;
    for (const auto& child : node.children) {
        keys.insert(child->key());
    }
    return keys;
}

void numberChildren(TreeNode& node)
{
    int row = 0;
    for (const auto& child : node.children) {
        child->row = row++;
    }
}

TreeNode* findKey(TreeNode& node, const QString& key)
{
    if (node.key() == key) {
        return &node;
    }
    for (const auto& child : node.children) {
        if (TreeNode* const found = findKey(*child, key)) {
            return found;
        }
    }
    return nullptr;
}

// Counts the nodes from the top down until it comes to the wanted one.
TreeNode* nodeAfter(TreeNode& node, int& left)
{
    if (left-- == 0) {
        return &node;
    }
    for (const auto& child : node.children) {
        if (TreeNode* const found = nodeAfter(*child, left)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

// Keeps an eye on a node while handlers run, which may take it away.
class ExplorerTree::Kept {
public:
    Kept(ExplorerTree& tree, TreeNode* node)
        : m_nodes(tree.m_kept)
    {
        m_nodes.push_back(node);
    }
    ~Kept() { m_nodes.pop_back(); }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

    // Null once it has gone. Asked only while no later one lives.
    [[nodiscard]] TreeNode* node() const { return m_nodes.back(); }

private:
    std::vector<TreeNode*>& m_nodes;
};

ExplorerTree::ExplorerTree(const Places& places, PopulationEvents& events)
    : m_places(places)
    , m_events(events)
{
}

void ExplorerTree::LoadTreeRoots(const QString& path, const HiddenPlaces& hidden)
{
    if (m_root) {
        return;
    }
    auto root = placeNode(workSpacePlace());
    hang(*root, placeNode(myComputerPlace()));
    TreeNode& computer = *root->children.front();
    root->isExpanded = true;
    computer.isExpanded = true;
    if (m_watcher != nullptr) {
        m_watcher->aboutToInsert(nullptr, 0, 1);
    }
    m_root = std::move(root);
    if (m_watcher != nullptr) {
        m_watcher->inserted();
    }
    for (const platform::Drive& drive : m_places.drives()) {
        addPlace(computer, drivePlace(drive), NodeTag::Unloaded, true);
    }
    for (const PlaceRow& place : userPlaces(m_places, hidden)) {
        addPlace(computer, place, NodeTag::Unloaded, true);
    }
    if (!hidden.network) {
        addPlace(*m_root, networkPlace(m_places), NodeTag::Unloaded, true);
    }
    if (!hidden.controlPanel) {
        addPlace(*m_root, controlPanelPlace(), NodeTag::Unloaded, false);
    }
    LoadSubFolders(path, findKey(*m_root, path));
}

void ExplorerTree::Clear()
{
    if (!m_root) {
        return;
    }
    if (m_watcher != nullptr) {
        m_watcher->aboutToRemove(nullptr, 0, 1);
    }
    forget(*m_root, nullptr);
    m_root.reset();
    if (m_watcher != nullptr) {
        m_watcher->removed();
    }
}

void ExplorerTree::expand(TreeNode& node)
{
    const bool wasExpanded = std::exchange(node.isExpanded, true);
    if (wasExpanded || node.tag != NodeTag::Unloaded) {
        return;
    }
    if (!node.children.empty()) {
        remove(node, 0, 1);
    }
    const Kept kept(*this, &node);
    const QString key = node.key();
    LoadSubFolders(key, &node);
    tellExpanded(key);
    if (kept.node() == nullptr) {
        return;
    }
    if (!std::exchange(SkipNextExpand, false)) {
        node.tag = NodeTag::Loaded;
        return;
    }
    node.tag = NodeTag::Unloaded;
    collapse(*node.parent);
}

// The two nodes at the top keep what they have. Elsewhere one child stays for the expand mark.
void ExplorerTree::collapse(TreeNode& node)
{
    node.isExpanded = false;
    if (node.image == ImageRole::WorkSpace || node.image == ImageRole::MyComputer) {
        return;
    }
    const Kept kept(*this, &node);
    tellCollapsed(node.key());
    if (kept.node() == nullptr) {
        return;
    }
    node.tag = NodeTag::Unloaded;
    if (node.children.size() > 1) {
        remove(node, 0, static_cast<int>(node.children.size()) - 1);
    }
    if (m_selected != nullptr && m_selected != &node && node.holds(*m_selected)) {
        m_selected = &node;
    }
}

TreeNode* ExplorerTree::ExpandToPath(const QString& path)
{
    const QString target = path.toLower();
    const bool hasDrives = m_root && !m_root->children.front()->children.empty();
    TreeNode* node = hasDrives ? m_root->children.front()->children.front().get() : nullptr;
    while (node != nullptr) {
        if (!target.startsWith(node->key().toLower())) {
            node = node->nextSibling();
            continue;
        }
        const Kept kept(*this, node);
        expand(*node);
        if (kept.node() == nullptr) {
            break;
        }
        m_selected = node;
        node = node->children.empty() ? nullptr : node->children.front().get();
    }
    return m_selected;
}

int ExplorerTree::nodeCount() const
{
    return m_root ? m_root->countAll() : 0;
}

TreeNode* ExplorerTree::nodeAt(int index) const
{
    if (!m_root || index < 1) {
        return nullptr;
    }
    int left = index - 1;
    return nodeAfter(*m_root, left);
}

QString ExplorerTree::moveUnder(TreeNode& node, TreeNode& target)
{
    if (node.parent == nullptr || node.holds(target)) {
        return {};
    }
    node.keepKey();
    append(target, take(*node.parent, node.row, 1));
    return target.text + QStringLiteral(" is parent of ") + node.text;
}

// For a path whose node isn't there the progress is all that is to be seen.
void ExplorerTree::LoadSubFolders(const QString& path, TreeNode* node)
{
    const Kept kept(*this, node);
    Nodes nodes = readBranch(path, node);
    if (TreeNode* const still = kept.node(); still != nullptr && !nodes.empty()) {
        append(*still, std::move(nodes));
    }
    m_events.Progress(0);
}

ExplorerTree::Nodes ExplorerTree::readBranch(const QString& path, const TreeNode* node)
{
    const std::vector<QString> names = platform::visibleSubfolders(path);
    const bool isNetwork = path == m_places.network();
    const ImageRole image = isNetwork ? ImageRole::NetworkFolder : ImageRole::Folder;
    const QSet<QString> present = node != nullptr ? childKeys(*node) : QSet<QString>();
    const bool isWanted = node != nullptr;
    Nodes nodes;
    std::int64_t index = 0;
    for (const QString& name : names) {
        m_events.Progress(PercentOf(++index, static_cast<std::int64_t>(names.size())));
        if (isWanted && !present.contains(platform::joinPath(path, name))) {
            nodes.push_back(folderNode(path, name, image));
        }
    }
    return nodes;
}

// A key that a sibling has already adds nothing.
void ExplorerTree::addPlace(TreeNode& parent, const PlaceRow& place, NodeTag tag,
                            bool withPlaceholder)
{
    if (childKeys(parent).contains(place.key)) {
        return;
    }
    Nodes nodes;
    nodes.push_back(placeNode(place));
    nodes.back()->tag = tag;
    if (withPlaceholder) {
        hang(*nodes.back(), placeholder(NodeKey::PlacePlaceholder));
    }
    append(parent, std::move(nodes));
}

void ExplorerTree::append(TreeNode& parent, Nodes nodes)
{
    const int first = static_cast<int>(parent.children.size());
    if (m_watcher != nullptr) {
        m_watcher->aboutToInsert(&parent, first, static_cast<int>(nodes.size()));
    }
    for (auto& node : nodes) {
        hang(parent, std::move(node));
    }
    if (m_watcher != nullptr) {
        m_watcher->inserted();
    }
}

ExplorerTree::Nodes ExplorerTree::take(TreeNode& parent, int first, int count)
{
    if (m_watcher != nullptr) {
        m_watcher->aboutToRemove(&parent, first, count);
    }
    const auto begin = parent.children.begin() + first;
    Nodes taken(std::make_move_iterator(begin), std::make_move_iterator(begin + count));
    parent.children.erase(begin, begin + count);
    numberChildren(parent);
    if (m_watcher != nullptr) {
        m_watcher->removed();
    }
    return taken;
}

void ExplorerTree::remove(TreeNode& parent, int first, int count)
{
    for (const auto& gone : take(parent, first, count)) {
        forget(*gone, &parent);
    }
}

void ExplorerTree::forget(const TreeNode& gone, TreeNode* heir)
{
    if (m_selected != nullptr && gone.holds(*m_selected)) {
        m_selected = heir;
    }
    for (TreeNode*& node : m_kept) {
        node = node != nullptr && gone.holds(*node) ? nullptr : node;
    }
}

void ExplorerTree::tellExpanded(const QString& key)
{
    if (!isRootKey(key)) {
        m_events.FolderExpand(key);
        m_events.Change();
        return;
    }
    for (const std::int16_t type : rootTypesOf(key)) {
        m_events.RootExpand(type);
    }
}

void ExplorerTree::tellCollapsed(const QString& key)
{
    if (!isRootKey(key)) {
        m_events.FolderCollapse(key);
        return;
    }
    for (const std::int16_t type : rootTypesOf(key)) {
        m_events.RootCollapse(type);
    }
}

} // namespace files
