#pragma once

#include "files/explorer/places.h"
#include "files/transfer.h"
#include "widgets/strip_window.h"

class QComboBox;
class QLabel;
class QPushButton;
class ctlExplorer;

namespace files {
class FolderList;
}

namespace widgets {
class FormBuilder;
}

// Movefile: copies or moves the file in hand to another folder, as MoveNotCopy says. While that
// can't be done the window stays, and says nothing.
class Movefile : public widgets::StripWindow, public files::TransferWindow {
    Q_OBJECT

public:
    // The places outlive it.
    explicit Movefile(const files::Places& places = files::desktopPlaces());

    void setTransfer(const files::Transfer& transfer) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addHead(widgets::FormBuilder& form);
    void addTarget(widgets::FormBuilder& form);
    void addPlaces(widgets::FormBuilder& form);
    void addButtons(widgets::FormBuilder& form);
    void fillDrives();
    void connectParts();
    void setMode();

    void goTo(const QString& folder);
    void follow(const QString& folder);
    void showFolder(const QString& folder); // in the lists of drives and folders
    void followText();
    void followExplorer();
    void choose(const QString& folder);
    [[nodiscard]] int driveOf(const QString& folder) const;
    [[nodiscard]] bool openSelectedFolder();

    void go();
    [[nodiscard]] bool transfer(bool moves, const QString& to);
    void setRunning(bool isRunning);

    const files::Places& m_places;
    QString m_path; // the file's, which the field of the main window need not tell later
    QLabel* m_preview = nullptr;
    QLabel* m_picture = nullptr;
    QComboBox* m_target = nullptr;
    QComboBox* m_drives = nullptr;
    files::FolderList* m_folders = nullptr;
    ctlExplorer* m_explorer = nullptr;
    QPushButton* m_go = nullptr;
    bool m_isFollowing = false; // the parts follow one another: what they tell is known
    bool m_isRunning = false;
    bool m_isWanted = true; // nobody has closed the window while it ran
};
