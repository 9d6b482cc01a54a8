#pragma once

#include <QIcon>
#include <QString>
#include <QTreeWidget>
#include <functional>
#include <set>
#include <vector>

namespace platform {

// The widget of the folder tree. A branch is read each time it is opened; items that are still
// there stay, with what is open below them.
class FolderTreeWidget : public QTreeWidget {
public:
    explicit FolderTreeWidget(QWidget* parent);
    ~FolderTreeWidget() override;

    // Called with the folder after each change of the selection, when the tree is in order again.
    // It may take the tree away.
    void onSelected(std::function<void(const QString&)> handler)
    {
        m_selected = std::move(handler);
    }

    // Opens the branches on the way to a folder and selects it. False, and nothing changes, when
    // the folder doesn't exist. A hidden folder gets an item, because it was named.
    bool selectFolder(const QString& folder);

    [[nodiscard]] QString selectedFolder() const;

protected:
    bool event(QEvent* event) override;

private:
    class Change;

    void tellSelection();
    void refreshRoots();
    void addRoot(int position, const QString& folder, const QString& text, const QIcon& icon);
    void refreshBranch(QTreeWidgetItem& branch);
    void removeVanished(QTreeWidgetItem& branch, const std::set<QString>& present);
    void addMissing(QTreeWidgetItem& branch, const std::vector<QString>& names,
                    const std::set<QString>& present);
    [[nodiscard]] QTreeWidgetItem* makeItem(const QString& folder, const QString& name) const;
    [[nodiscard]] QTreeWidgetItem* rootOf(const QString& folder) const;
    QTreeWidgetItem* childOf(QTreeWidgetItem& branch, const QString& name);

    QIcon m_folderIcon;
    QIcon m_driveIcon;
    std::function<void(const QString&)> m_selected;
    int m_changes = 0; // changes under way, which tell of the selection at their end
};

} // namespace platform
