#pragma once

namespace core {

class BrowserPane;
class ConfigStore;
class MainWindow;

// What the shell has put in place so far. Null means: not there (yet, or any more).
struct Services {
    ConfigStore* config = nullptr;
    MainWindow* mainWindow = nullptr;
    BrowserPane* browserPane = nullptr;
};

Services& services();

} // namespace core
