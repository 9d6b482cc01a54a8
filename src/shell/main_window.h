#pragma once

#include "core/file_field.h"
#include "core/main_menus.h"
#include "core/picture_display.h"
#include "core/window_names.h"
#include "core/work_area.h"
#include "platform/pictures/picture_box.h"
#include "shell/command_table.h"
#include "shell/layout.h"

#include <QWidget>
#include <functional>
#include <memory>

class Avi;
class QAction;
class QLabel;
class QToolButton;
class chameleonButton;
class cpvPicViewer;

namespace platform {
class FileList;
}

namespace shell {
class CoolBar;
class FileNameField;
class KeptMaximised;
class Menus;
class PanelBar;
class SideActivation;
class Toolbars;
} // namespace shell

namespace widgets {
class FirstTouch;
class ProgressStrip;
} // namespace widgets

namespace files {
class DisplayPipeline;
}

// The one main window. Its work area shows the browser pane with the viewer beside it (browse mode)
// or the viewer alone (picture mode). Other windows reach it by its roles in core::services().
//
// Lengths of the layout are twips; the widgets themselves are placed in pixels.
class Form1 : public QWidget,
              public core::PictureDisplay,
              public core::FileField,
              public core::MainMenus,
              public core::WorkArea {
    Q_OBJECT

public:
    Form1();
    ~Form1() override;

    // The work of loading, in its order; called once before the window is shown first.
    void load();
    // Restores the persisted modes.
    void SetLoad();
    // The main window's side became active: a press, the focus or the window itself.
    void becameActive();
    // The pane takes part in what becomes active from here on.
    void watchPane(QWidget* pane, std::function<void()> paneActive);
    // Leaves the program: the unload, in its order. A second call does nothing.
    void unload();
    // The shorter way of the Exit command, which ends in the same unload.
    void exitProgram();

    // Mode switches
    void OCbrowse();
    void Smallfrm();
    void closePanView() override;
    void Scrollshow();
    void Dragpic();
    void fastZoomshow();
    void toggleBestFit(); // toolbar entry 15
    void showFullScreenTopmost();
    void setBandShown(int band, bool shown); // 1 commands, 2 file name
    [[nodiscard]] bool isBandShown(int band) const;

    // Display
    void form1paint() override;
    void setModi();
    void nextpic();
    void prevpic();
    void SlideNext();
    void SlidePrevp();
    void start_slideshow();
    void stop_slideshow();
    void display_pic();
    void openPsd(const QString& path);
    void Np(const QString& folder);
    void ChangePath();
    void goEnter();
    void clickXiala();
    // How far a reader has come that lets no events run.
    void showReadingProgress(double fraction);
    files::DisplayPipeline& pipeline() { return *m_pipeline; }

    // Commands of others
    void ThumbNailSize(int menuIndex) override;
    void ThumbNailColor(int menuIndex) override;
    void PasteTesselia();
    void showFavourite(int place);     // from 1, in the order of the menu
    void startListedEditor(int place); // from 1
    void Propers(const QString& path);
    void maskT() {}
    void colorChagne() {}
    void SaveGIF();
    void addRecentPath(const QString& path) override;
    void refillRecentPaths() override;
    void refillListMenus() override;
    void setMenuState(bool enabled) override;
    void popUpFolderTools(const QPoint& screenPosition) override;
    void pressSlideButton(bool pressed) override;
    void setDir2(const QString& folder) override;
    void rebuildSizeText() override;
    void zoomToolClosed() override;

    // Runs a command inside the common frame: hourglass, picture test, the work, focus to the
    // viewer, default pointer.
    void runCommand(shell::Need need, shell::Handler handler, int index);
    // Opens a window of another folder; the hourglass ends before a modal one shows.
    QWidget* showWindow(core::Window window, bool modal);

    // Controls
    [[nodiscard]] QString Xiala() const override;
    void setXiala(const QString& text) override;
    platform::PictureBox& Image1() override { return m_image1; }
    platform::PictureBox& orgPicture() override { return m_orgPicture; }
    core::Viewer& viewer() override;
    cpvPicViewer& cpvPicScroll1() { return *m_viewer; }
    core::StatusBar& StateBar() override;
    QWidget* window() override { return m_client; }
    shell::Menus& menus() { return *m_menus; }
    shell::Toolbars& toolbars() { return *m_toolbars; }
    [[nodiscard]] const QString& Dir2() const { return m_dir2; }
    [[nodiscard]] int coolBarHeightTwips() const;
    [[nodiscard]] int viewerHeightTwips() const override;
    [[nodiscard]] std::int16_t pictureCount() const override { return PictureCount; }

    // Members of the design that other code reads and writes as they stand.
    std::int16_t PictureCount = 0;
    bool MaximizedToggle = true;
    QString SizeText;
    bool LibImport = false; // the next file opened is filed in the picture library

private:
    void takeRoles();
    void buildControls();
    void buildFieldBand();
    void buildStrip();
    void openFromField(void (Form1::*open)());
    void connectViewer();
    void connectColourMenu();
    void prepareLists();
    void refillFavourites();
    void refillEditors();
    void startAnimation();
    void writePresenceMarker();
    void resizeForm();
    void placeParts();
    void placeStrips();
    void placePanView();
    void placeZoomTool();
    void moveZoomTool();
    void placeRestoredWindows();
    [[nodiscard]] shell::WindowMeasures measures() const;
    void connectKeys();
    bool runKey(int code);
    void scrollByKey(int code);
    void openRightMenu(const QPoint& screenPosition);
    void selectFirstEntry();
    void checkOnly(const QString& array, int index);
    void setChecks(const char* first, int firstIndex, const char* second, int secondIndex, bool on);
    [[nodiscard]] bool isChecked(const char* array, int index) const;

    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    QWidget* m_client = nullptr; // the work area below the menu bar
    shell::CoolBar* m_coolBar = nullptr;
    QWidget* m_fieldBand = nullptr;
    shell::FileNameField* m_xiala = nullptr;
    QWidget* m_picture4 = nullptr; // strip along the bottom edge
    shell::PanelBar* m_stateBar = nullptr;
    widgets::ProgressStrip* m_gradient = nullptr;
    cpvPicViewer* m_viewer = nullptr;
    std::unique_ptr<shell::Menus> m_menus;
    std::unique_ptr<shell::Toolbars> m_toolbars;
    std::unique_ptr<files::DisplayPipeline> m_pipeline;
    std::unique_ptr<shell::SideActivation> m_activation;
    std::unique_ptr<widgets::FirstTouch> m_touch;
    std::unique_ptr<shell::KeptMaximised> m_maximised;
    std::unique_ptr<Avi> m_avi;
    static constexpr QSize kAviSize{40, 30}; // pixels
    QWidget* m_aviHost = nullptr;

    platform::PictureBox m_image1;
    platform::PictureBox m_orgPicture;
    QString m_dir2;
    QStringList m_listPath;       // ListPath: paths of the favourites, in the order of their menu
    shell::Extent m_viewerExtent; // twips, in the work area
    bool m_bestFitToggle = false;
    bool m_resizing = false;
    bool m_pictureRestored = false; // picture mode at start, and not switched since
    bool m_unloaded = false;
    int m_wheelRest = 0; // eighths of a degree not yet taken as a step
};
