#pragma once

#include "platform/os/file_list.h"
#include "widgets/strip_window.h"

class QComboBox;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

// Adds a program to the list of editors: it is picked by drive, folder and file, or its path typed,
// and gets a name for the menu.
class FrmSwitch : public widgets::StripWindow {
    Q_OBJECT

public:
    FrmSwitch();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void enterFolder(const QString& folder);
    void enterItem(const QListWidgetItem* item);
    void takeFile();
    void addEditor();

    QComboBox* m_drives = nullptr;
    QListWidget* m_folders = nullptr;
    QListWidget* m_files = nullptr;
    QLineEdit* m_path = nullptr;
    QLineEdit* m_name = nullptr;
    platform::FileList m_fileList;
};
