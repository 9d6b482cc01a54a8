#include "files/explorer/ctl_explorer.h"

#include "files/explorer/folder_listing.h"
#include "platform/os/paths.h"

#include <QScopedValueRollback>

// What the tree tells, as events of the control.
class ctlExplorer::Events : public files::PopulationEvents {
public:
    explicit Events(ctlExplorer& explorer)
        : m_explorer(explorer)
    {
    }
    void Change() override { emit m_explorer.Change(); }
    void FolderExpand(const QString& key) override { emit m_explorer.FolderExpand(key); }
    void FolderCollapse(const QString& key) override { emit m_explorer.FolderCollapse(key); }
    void Progress(std::int16_t percent) override { emit m_explorer.Progress(percent); }
    void RootExpand(std::int16_t type) override { emit m_explorer.RootExpand(type); }
    void RootCollapse(std::int16_t type) override { emit m_explorer.RootCollapse(type); }

private:
    ctlExplorer& m_explorer;
};

ctlExplorer::ctlExplorer(QWidget* parent, const core::PropertyBag& bag, const files::Places& places)
    : QWidget(parent)
    , m_values(files::readExplorerProperties(bag))
    , m_places(places)
    , m_events(std::make_unique<Events>(*this))
    , m_tree(places, *m_events)
    , m_treeModel(m_tree)
    , m_treeView(*this, this)
    , m_listView(*this, this)
{
    m_treeView.setObjectName(QStringLiteral("TreeView1"));
    m_treeView.setAccessibleName(tr("Folders"));
    m_treeView.setModel(&m_treeModel);
    m_listView.setObjectName(QStringLiteral("ListView1"));
    m_listView.setAccessibleName(tr("Files"));
    m_listView.setModel(&m_listModel);
    m_treeModel.setPictures(m_pictures.ofTree());
    m_listModel.setPictures(m_pictures.ofList([this] { return m_values.View == 0; }));
    connectTree();
    connectList();
    applyToViews();
    layoutViews();
    RefreshView();
}

ctlExplorer::~ctlExplorer() = default;

void ctlExplorer::writeProperties(core::PropertyBag& bag) const
{
    files::writeProperties(m_values, bag);
}

files::HiddenPlaces ctlExplorer::hiddenPlaces() const
{
    return {m_values.HideFavorites, m_values.HideMyDocuments, m_values.HideNetwork,
            m_values.HideControlPanel};
}

QString ctlExplorer::path() const
{
    const files::TreeNode* const node = m_tree.selected();
    return node != nullptr ? node->key() : m_values.Path;
}

void ctlExplorer::setPath(const QString& path)
{
    m_values.Path = path;
    RefreshView();
    {
        const QScopedValueRollback<bool> following(m_isFollowing, true);
        m_tree.ExpandToPath(path);
    }
    showNodes();
    emit PropertyChanged(QStringLiteral("Path"));
    emit Change();
    if (isTree()) {
        emit FolderClick(path);
    } else {
        emit FileClick(path);
    }
}

void ctlExplorer::RefreshView()
{
    const QString folder = platform::withSeparator(m_values.Path);
    if (isTree()) {
        m_tree.LoadTreeRoots(folder, hiddenPlaces());
        showNodes();
    } else if (isList()) {
        const auto tell = [this](std::int16_t percent) { emit Progress(percent); };
        showRows(files::listFolder({folder, m_values.Filter, m_values.ShowFolders}, tell));
    }
}

// The applets stand in order, and the list goes on sorting so.
void ctlExplorer::ListRootFolder(files::RootType type)
{
    if (type == files::RootType::ControlPanel) {
        m_values.Sorted = true;
        m_values.SortKey = 0;
        m_values.SortOrder = 0;
    }
    const auto tell = [this](std::int16_t percent) { emit Progress(percent); };
    showRows(files::listRoot(type, m_places, hiddenPlaces(), tell));
}

void ctlExplorer::showRows(files::ListRows rows)
{
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    m_listModel.setRows(std::move(rows));
    sortRows();
}

void ctlExplorer::sortRows()
{
    if (m_values.Sorted) {
        m_listModel.sort(m_values.SortKey,
                         m_values.SortOrder == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
}

void ctlExplorer::Clear()
{
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    if (isTree()) {
        m_tree.Clear();
    } else if (isList()) {
        m_listModel.setRows({});
    }
}
