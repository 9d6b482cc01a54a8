#pragma once

#include "core/window_registry.h"
#include "platform/os/file_list.h"
#include "shell/main_window.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_screen_grab.h"
#include "support/fake_tray.h"
#include "support/temp_tree.h"

#include <QStringList>
#include <functional>
#include <map>
#include <vector>

// The whole program in the process of a test, with a home of its own and scripted dialogs.
class RunningProgram {
public:
    RunningProgram();
    ~RunningProgram();

    // What config.ini holds at the start; without any key there is no file.
    std::map<QString, QString> config;

    // Runs the program. Once its folder tree is open and the first folder is shown, the script
    // runs; then the main window closes, unless the script has done so.
    void run(const std::function<void(Form1&)>& script);

    [[nodiscard]] QString stored(const char* key) const;
    [[nodiscard]] QString picture(const char* name) const;

    // What happens to a window that shows modally; without it the window is closed at once.
    std::function<void(QWidget&)> onModal;
    QStringList modals; // their names, in order

    // Lets events run for a while, until the condition holds; false when it never does.
    static bool waitFor(const std::function<bool()>& condition);

    // A plain window stands under this name from here on.
    void stubWindow(core::Window window);

    // Presses and releases a key on the viewer.
    static void pressKey(Form1& form, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                         const QString& text = {});
    // Presses and releases the left button in the middle of a widget.
    static void click(QWidget& widget);

    static platform::FileList& File1();
    static QAction& entry(Form1& form, const char* array, int index);
    static void trigger(Form1& form, const char* array, int index);

    // In memory, since settings are flushed at every start and end, which a disk takes its time
    // for.
    support::TempTree tree;
    support::FakeDialogs dialogs;
    support::FakeDesktop desktop;
    support::FakeScreenGrab screens;
    support::FakeTray tray;
    QStringList steps;    // of starting, as the program tells them
    QStringList unloaded; // windows, in order
    QStringList shown;    // stub windows, in order

private:
    void serveModal();

    std::vector<core::Window> m_stubs;
};
