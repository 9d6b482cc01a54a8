#pragma once

#include <functional>

namespace core {

class BrowserPane;
class ConfigStore;
class FileField;
class MainMenus;
class PictureDisplay;
class ProgressStrip;
class WorkArea;

// What the shell has put in place so far: the settings, the main window by its roles, and the pane.
// Null means: not there (yet, or any more). The roles of the main window come and go together.
struct Services {
    ConfigStore* config = nullptr;
    PictureDisplay* display = nullptr;
    FileField* field = nullptr;
    MainMenus* menus = nullptr;
    ProgressStrip* progress = nullptr;
    WorkArea* workArea = nullptr;
    BrowserPane* browserPane = nullptr;

    // Work of folders that may be missing; an empty function means that the command ends quietly.
    std::function<void()> createAlbum;
    std::function<void()> setWallpaper; // reads the one-shot flags of core::state()
    std::function<void()> stopPlayer;
    std::function<void()> endProgram; // as the Exit command does
};

Services& services();

} // namespace core
