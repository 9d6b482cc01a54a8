#include "files/explorer/folder_tree_widget.h"

#include "files/explorer/model_roles.h"
#include "platform/os/files.h"
#include "platform/os/mounts.h"
#include "platform/os/paths.h"
#include "platform/os/subfolders.h"

#include <QDir>
#include <QEvent>
#include <QHeaderView>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>
#include <set>

namespace files {

namespace {

constexpr int kFolderRole = Qt::UserRole;
constexpr int kNameRole = Qt::UserRole + 1;

QString folderOfItem(const QTreeWidgetItem& item)
{
    return item.data(0, kFolderRole).toString();
}

QString nameOfItem(const QTreeWidgetItem& item)
{
    return item.data(0, kNameRole).toString();
}

void setBranchMarker(QTreeWidgetItem& item, bool hasBranches)
{
    item.setChildIndicatorPolicy(hasBranches ? QTreeWidgetItem::ShowIndicator
                                             : QTreeWidgetItem::DontShowIndicator);
}

bool isInside(const QTreeWidgetItem* item, const QTreeWidgetItem* branch)
{
    while (item != nullptr && item != branch) {
        item = item->parent();
    }
    return item != nullptr;
}

} // namespace

// A change of items that may move the selection more than once. Only where it ends is a choice.
class FolderTreeWidget::Change {
public:
    explicit Change(FolderTreeWidget& tree)
        : m_tree(tree)
        , m_before(tree.selectedFolder())
    {
        ++m_tree.m_changes;
    }
    ~Change()
    {
        if (--m_tree.m_changes == 0 && m_tree.selectedFolder() != m_before) {
            m_tree.choose();
        }
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

private:
    FolderTreeWidget& m_tree;
    QString m_before;
};

FolderTreeWidget::FolderTreeWidget(QWidget* parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("FolderTree"));
    setAccessibleName(QStringLiteral("Folders"));
    verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll the folders up and down"));
    horizontalScrollBar()->setAccessibleName(QStringLiteral("Scroll the folders sideways"));
    header()->setAccessibleName(QStringLiteral("Heading of the folders"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    // A pane narrower than the names scrolls. All rows are measured, so that none is cut when it is
    // scrolled into sight.
    header()->setStretchLastSection(false);
    header()->setResizeContentsPrecision(-1);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setHorizontalScrollMode(ScrollPerPixel);

    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
        forgetWidth();
        refreshBranch(*item);
    });
    connect(this, &QTreeWidget::itemCollapsed, this, &FolderTreeWidget::forgetWidth);
    connect(model(), &QAbstractItemModel::rowsInserted, this, &FolderTreeWidget::forgetWidth);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, &FolderTreeWidget::forgetWidth);
    connect(this, &QTreeWidget::currentItemChanged, this, [this] {
        if (m_changes == 0) {
            choose();
        }
    });
    connect(this, &QTreeWidget::itemPressed, this, &FolderTreeWidget::chooseUnlessShown);
    connect(this, &QTreeWidget::itemActivated, this, &FolderTreeWidget::chooseUnlessShown);
    refreshRoots();
}

FolderTreeWidget::~FolderTreeWidget()
{
    // Items that go with the tree are no change of the selection.
    disconnect(this, nullptr, this, nullptr);
}

// The choice is told by an event of its own. Within a press or a key that this is called from, the
// highlight follows the current item later, and what the handler lets happen would come in between.
void FolderTreeWidget::choose()
{
    if (currentItem() != nullptr) {
        m_untold.push_back(selectedFolder());
        QMetaObject::invokeMethod(this, &FolderTreeWidget::tellNext, Qt::QueuedConnection);
    }
}

// A choice that isn't told yet is the current folder, and will be shown.
void FolderTreeWidget::chooseUnlessShown()
{
    if (m_untold.empty() && m_isShown && !m_isShown(selectedFolder())) {
        choose();
    }
}

void FolderTreeWidget::tellNext()
{
    // A selection from code has told what was chosen before it too.
    if (m_untold.empty()) {
        return;
    }
    const QString folder = m_untold.front();
    m_untold.pop_front();
    // A copy, because what it does may take the handler away.
    if (const auto selected = m_selected) {
        // The handler may be at work for long before it lets anything be painted.
        viewport()->repaint();
        selected(folder);
    }
}

void FolderTreeWidget::tellAll()
{
    const QPointer<FolderTreeWidget> alive = this;
    while (alive != nullptr && !m_untold.empty()) {
        tellNext();
    }
}

void FolderTreeWidget::forgetWidth()
{
    m_isWidthKnown = false;
    scheduleDelayedItemsLayout();
}

bool FolderTreeWidget::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        forgetWidth();
    }
    // A stick may have come or gone while the user was elsewhere.
    if (event->type() == QEvent::WindowActivate) {
        refreshRoots();
    }
    return QTreeWidget::event(event);
}

int FolderTreeWidget::sizeHintForColumn(int column) const
{
    // Measuring thousands of names takes too long for each step of a pane that is made wider.
    if (!m_isWidthKnown) {
        const int width = QTreeWidget::sizeHintForColumn(column);
        m_isWidthKnown = width >= 0; // else the rows aren't laid out yet
        m_namesWidth = m_isWidthKnown ? width : m_namesWidth;
    }
    return std::max(m_namesWidth, viewport()->width());
}

// The folder chosen keeps its highlight, whatever keys are held.
QItemSelectionModel::SelectionFlags
FolderTreeWidget::selectionCommand(const QModelIndex& index, const QEvent* /*event*/) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
}

// Sideways the marker and the name count, not the whole row. Where they don't fit, the end is cut.
void FolderTreeWidget::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    QTreeWidget::scrollTo(index, hint);
    QScrollBar& bar = *horizontalScrollBar();
    const int name = visualRect(index).left() + bar.value();
    const int nameEnd = name + sizeHintForIndex(index).width();
    bar.setValue(std::min(nameEnd - viewport()->width(), name - indentation()));
}

QTreeWidgetItem* FolderTreeWidget::makeItem(const QString& folder, const QString& name)
{
    auto* const item = new QTreeWidgetItem;
    item->setText(0, shownText(name));
    item->setIcon(0, m_icons.icon(ImageRole::Folder));
    item->setData(0, kFolderRole, folder);
    item->setData(0, kNameRole, name);
    setBranchMarker(*item, platform::hasVisibleSubfolder(folder));
    return item;
}

void FolderTreeWidget::addRoot(int position, const QString& folder, const QString& text,
                               ImageRole role)
{
    QTreeWidgetItem* const item = makeItem(folder, text);
    item->setIcon(0, m_icons.icon(role));
    insertTopLevelItem(position, item);
}

void FolderTreeWidget::refreshRoots()
{
    if (topLevelItemCount() == 0) {
        addRoot(0, platform::homeFolder(), roleName(ImageRole::Home), ImageRole::Home);
        addRoot(1, QStringLiteral("/"), QStringLiteral("File system"), ImageRole::Drive);
    }
    constexpr int kFixedRoots = 2;
    const Change change(*this);
    const QStringList mounts = platform::mediaMounts();
    QStringList shown;
    for (int i = topLevelItemCount() - 1; i >= kFixedRoots; --i) {
        QTreeWidgetItem* const root = topLevelItem(i);
        if (mounts.contains(folderOfItem(*root))) {
            shown.append(folderOfItem(*root));
            continue;
        }
        if (isInside(currentItem(), root)) {
            setCurrentItem(topLevelItem(0));
        }
        delete root;
    }
    for (int i = 0; i < mounts.size(); ++i) {
        if (!shown.contains(mounts[i])) {
            addRoot(std::min(kFixedRoots + i, topLevelItemCount()), mounts[i],
                    platform::fileNameOf(mounts[i]), ImageRole::Drive);
        }
    }
}

void FolderTreeWidget::removeVanished(QTreeWidgetItem& branch, const std::set<QString>& present)
{
    for (int i = branch.childCount() - 1; i >= 0; --i) {
        QTreeWidgetItem* const child = branch.child(i);
        // Hidden folders that were selected by name aren't listed and stay.
        if (present.contains(nameOfItem(*child)) || platform::isFolder(folderOfItem(*child))) {
            continue;
        }
        if (isInside(currentItem(), child)) {
            setCurrentItem(&branch);
        }
        delete child;
    }
}

void FolderTreeWidget::addMissing(QTreeWidgetItem& branch, const std::vector<QString>& names,
                                  const std::set<QString>& present)
{
    int position = 0;
    QList<QTreeWidgetItem*> added;
    const auto insertAdded = [&] {
        branch.insertChildren(position, added);
        position += int(added.size());
        added.clear();
    };
    // The children that are listed stand in the order of the names already.
    for (const QString& name : names) {
        while (position < branch.childCount() &&
               !present.contains(nameOfItem(*branch.child(position)))) {
            ++position;
        }
        if (position < branch.childCount() && nameOfItem(*branch.child(position)) == name) {
            insertAdded();
            ++position;
        } else {
            added.append(makeItem(platform::joinPath(folderOfItem(branch), name), name));
        }
    }
    insertAdded();
}

void FolderTreeWidget::refreshBranch(QTreeWidgetItem& branch)
{
    const Change change(*this);
    const std::vector<QString> names = platform::visibleSubfolders(folderOfItem(branch));
    const std::set<QString> present(names.begin(), names.end());
    removeVanished(branch, present);
    for (int i = 0; i < branch.childCount(); ++i) {
        QTreeWidgetItem& child = *branch.child(i);
        if (child.childCount() == 0) {
            setBranchMarker(child, platform::hasVisibleSubfolder(folderOfItem(child)));
        }
    }
    addMissing(branch, names, present);
    setBranchMarker(branch, branch.childCount() > 0);
}

QTreeWidgetItem* FolderTreeWidget::rootOf(const QString& folder) const
{
    QTreeWidgetItem* closest = nullptr;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* const root = topLevelItem(i);
        const bool isCloser =
            closest == nullptr || folderOfItem(*root).size() > folderOfItem(*closest).size();
        if (isCloser && platform::holdsPath(folderOfItem(*root), folder)) {
            closest = root;
        }
    }
    return closest;
}

QTreeWidgetItem* FolderTreeWidget::childOf(QTreeWidgetItem& branch, const QString& name)
{
    const auto find = [&]() -> QTreeWidgetItem* {
        for (int i = 0; i < branch.childCount(); ++i) {
            if (nameOfItem(*branch.child(i)) == name) {
                return branch.child(i);
            }
        }
        return nullptr;
    };
    if (QTreeWidgetItem* const child = find()) {
        return child;
    }
    // The folder is new, or it isn't listed: hidden, or in a folder that can only be passed
    // through.
    refreshBranch(branch);
    if (QTreeWidgetItem* const child = find()) {
        return child;
    }
    const QString folder = platform::joinPath(folderOfItem(branch), name);
    if (!platform::isFolder(folder)) {
        return nullptr;
    }
    QTreeWidgetItem* const child = makeItem(folder, name);
    branch.insertChild(0, child);
    setBranchMarker(branch, true);
    branch.setExpanded(true);
    return child;
}

bool FolderTreeWidget::goTo(const QString& folder)
{
    QTreeWidgetItem* item = platform::isFolder(folder) ? rootOf(folder) : nullptr;
    if (item == nullptr) {
        return false;
    }
    const Change change(*this);
    const QString below = folder.mid(folderOfItem(*item).size());
    for (const QString& name : below.split(u'/', Qt::SkipEmptyParts)) {
        item->setExpanded(true);
        item = childOf(*item, name);
        if (item == nullptr) {
            return false;
        }
    }
    setCurrentItem(item);
    // The branches just opened are measured in time for the scroll bars.
    resizeColumnToContents(0);
    updateGeometries();
    scrollTo(indexFromItem(item));
    return true;
}

bool FolderTreeWidget::selectFolder(const QString& folder)
{
    if (!goTo(QDir::cleanPath(folder))) {
        return false;
    }
    chooseUnlessShown();
    tellAll();
    return true;
}

QString FolderTreeWidget::selectedFolder() const
{
    const QTreeWidgetItem* const item = currentItem();
    return item != nullptr ? folderOfItem(*item) : QString();
}

} // namespace files
