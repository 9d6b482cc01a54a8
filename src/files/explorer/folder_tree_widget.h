#pragma once

#include "files/explorer/role_icons.h"

#include <QString>
#include <QTreeWidget>
#include <deque>
#include <functional>
#include <set>
#include <vector>

namespace files {

// The widget of the folder tree. A branch is read each time it is opened; items that are still
// there stay, with what is open below them.
class FolderTreeWidget : public QTreeWidget {
public:
    explicit FolderTreeWidget(QWidget* parent);
    ~FolderTreeWidget() override;

    // The handler is called with the folder once for each selection, when what made it (a press, a
    // key) is wholly done with and the highlight is painted. It may let events run, select another
    // folder, and take the tree away. The test says whether a folder is the one that the handler's
    // side shows; choosing the current folder selects it anew where it isn't.
    void onSelected(std::function<void(const QString&)> handler,
                    std::function<bool(const QString&)> isShown)
    {
        m_selected = std::move(handler);
        m_isShown = std::move(isShown);
    }

    // Opens the branches on the way to a folder and selects it; the handler has been called when
    // this comes back. False, and nothing changes, when the folder doesn't exist. A hidden folder
    // gets an item, because it was named.
    bool selectFolder(const QString& folder);

    [[nodiscard]] QString selectedFolder() const;

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
    bool event(QEvent* event) override;
    // The row's width in pixels: that of the widest name with its indentation, or the view's.
    [[nodiscard]] int sizeHintForColumn(int column) const override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    class Change;

    void forgetWidth();
    void choose();
    void chooseUnlessShown();
    void tellNext();
    void tellAll();
    bool goTo(const QString& folder);
    void refreshRoots();
    void addRoot(int position, const QString& folder, const QString& text, ImageRole role);
    void refreshBranch(QTreeWidgetItem& branch);
    void removeVanished(QTreeWidgetItem& branch, const std::set<QString>& present);
    void addMissing(QTreeWidgetItem& branch, const std::vector<QString>& names,
                    const std::set<QString>& present);
    [[nodiscard]] QTreeWidgetItem* makeItem(const QString& folder, const QString& name);
    [[nodiscard]] QTreeWidgetItem* rootOf(const QString& folder) const;
    QTreeWidgetItem* childOf(QTreeWidgetItem& branch, const QString& name);

    RoleIcons m_icons;
    std::function<void(const QString&)> m_selected;
    std::function<bool(const QString&)> m_isShown;
    std::deque<QString> m_untold; // chosen, oldest first
    mutable int m_namesWidth = 0; // pixels, of the widest when they were measured last
    mutable bool m_isWidthKnown = false;
    int m_changes = 0; // changes under way, at whose end one folder is chosen
};

} // namespace files
