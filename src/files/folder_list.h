#pragma once

#include "files/explorer/role_icons.h"

#include <QListWidget>
#include <QString>

namespace files {

// The way to a folder and what lies in it, one folder a line: from the drive down to the folder,
// each a step further in than the one around it, then its subfolders. A double click or Return on a
// line asks to go there, Backspace to the folder around.
class FolderList : public QListWidget {
    Q_OBJECT

public:
    explicit FolderList(QWidget* parent = nullptr);

    // Reads the folder anew and selects its line. It lies in the drive or is it.
    void showFolder(const QString& drive, const QString& folder);
    [[nodiscard]] const QString& folder() const { return m_folder; }

signals:
    void folderChosen(const QString& folder);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addFolder(const QString& path, const QString& text, int depth);
    void choose(const QListWidgetItem* item);

    RoleIcons m_icons;
    QString m_folder;
};

} // namespace files
