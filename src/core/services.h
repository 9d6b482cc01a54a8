#pragma once

#include <functional>

namespace core {

class BrowserPane;
class ConfigStore;
class MainWindow;

// What the shell has put in place so far. Null means: not there (yet, or any more).
struct Services {
    ConfigStore* config = nullptr;
    MainWindow* mainWindow = nullptr;
    BrowserPane* browserPane = nullptr;

    // Work of folders that may be missing; an empty function means that the command ends quietly.
    std::function<void()> createAlbum;
    std::function<void()> setWallpaper; // reads the one-shot flags of core::state()
    std::function<void()> stopPlayer;
};

Services& services();

} // namespace core
