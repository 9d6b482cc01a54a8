#pragma once

#include "core/browser_pane.h"
#include "platform/os/file_list.h"
#include "thumbs/pane/pane_layout.h"
#include "thumbs/pane_thumbnails.h"

#include <QWidget>
#include <array>
#include <memory>

class chameleonButton;
class ThumbNailList;

namespace thumbs {
class PaneGrip;
class PaneSplitter;
} // namespace thumbs

namespace widgets {
class FirstTouch;
class TitleStrip;
} // namespace widgets

// The browser pane over the left part of the main window: title strip, folder tree, splitter, a row
// of buttons, and the thumbnails of the folder. It is a child of the main window, so activation is
// something that the main window tells it.
class frmThumbnaillist : public QWidget, public core::BrowserPane, public thumbs::PaneThumbnails {
    Q_OBJECT

public:
    static constexpr int kButtons = 9;

    explicit frmThumbnaillist(QWidget* parent = nullptr);
    ~frmThumbnaillist() override;

    // Comes once, before the pane is shown: takes look, size and colours of the thumbnails from the
    // settings and makes this the pane of core::services(); unloading takes it away again.
    void load();

    // The folder that the first PathChange goes to in place of the one in the settings. Set by
    // whoever finds that one unfit to start with.
    void setStartFolder(const QString& folder) { m_startFolder = folder; }

    // The box that the folder tree is opened in, and what its selection calls.
    [[nodiscard]] QWidget& treeHost() { return *m_dir1; }
    void treeSelected(const QString& folder);

    // The pane's side of the main window has become the active one. The first time, once the first
    // folder is known and the window stands on the screen, this starts the thumbnails; being shown
    // counts as well.
    void activated();

    [[nodiscard]] ThumbNailList& ThumbNailList1() override { return *m_list; }
    [[nodiscard]] chameleonButton& Tbmenub(int index);

    // Follows CurrentFolder, the first time the folder to start with or the stored one.
    void PathChange();
    void applyPath(const QString& folder) override;
    void ThumResize() override;
    platform::FileList& File1() override { return m_files; }
    void setSplitterEnabled(bool enabled) override;
    // For a pane that nobody sees the run is put off until it is shown. None runs before the first
    // folder is shown.
    void rebuildThumbnails() override;
    void stopThumbnails() override;
    void setThumbnailSize(int pixels) override;
    void setColourPreset(int preset) override;
    int thumbnailPagesNeeded() override;
    int thumbnailsPerPage() override;
    [[nodiscard]] bool isFirstFolderShown() const override { return m_firstRunEnded; }
    [[nodiscard]] int widthTwips() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeParts();
    void makeButtons();
    void readThumbnailSettings();
    void layoutParts();
    void layoutButtons();
    void placeTree();
    void changeWidth(int pixels);

    void followFolder(const QString& folder);
    void File1_PathChange();
    void serveFirstActivation();
    void startWhenReady();
    void followWindow();
    void unloadPane();
    void enableButtons(bool enabled);

    bool handleTileKey(const QKeyEvent& event);
    bool actOnTileKey(const QKeyEvent& event);
    void giveViewerFocus();
    void showTilesFile(int index, const QString& path);
    void openTilesFile(int index, const QString& path);

    void pressButton(int index);
    void goToParent();
    void popUpTools();
    void showProperties();
    void rename();
    void deleteFile();
    void copyFile();
    void moveFile();
    void openFavourites();
    void refresh();

    platform::FileList m_files;
    QString m_startFolder;
    bool m_pathKnown = false;         // the first PathChange is done
    bool m_tileChosen = false;        // since the last PathChange began
    bool m_activationPending = false; // the first activation waits to be served
    bool m_activationServed = false;
    bool m_firstFolderShown = false; // or being shown
    bool m_firstRunEnded = false;
    bool m_runWhenShown = false;
    bool m_resizing = false;
    bool m_tileKey = false; // a key on the tiles is being handled
    bool m_following = false;
    bool m_roomChanged = false; // of the thumbnails, since pages were made for it

    std::unique_ptr<widgets::FirstTouch> m_touch;

    widgets::TitleStrip* m_title = nullptr;
    QWidget* m_dir1 = nullptr;
    thumbs::PaneSplitter* m_splitter = nullptr;
    QWidget* m_tbmiddle = nullptr;
    std::array<chameleonButton*, kButtons> m_buttons{};
    ThumbNailList* m_list = nullptr;
    thumbs::PaneGrip* m_grip = nullptr;
};
