#pragma once

#include <QString>
#include <functional>

namespace shell {

// Tells each step of starting and stopping, by name, to whoever wants to know (tests).
using StepWatcher = std::function<void(const QString& step)>;

// Makes every window known to the registry. The main window is made by the registry too.
void registerWindows();

// Runs the program from its first window to its last. The application object exists, and no other
// instance runs. Comes back when the folder tree has been closed.
void runProgram(const StepWatcher& watcher = {});

// Ends the program as the Exit command does, whatever it is doing. Where the main window isn't
// there yet, it doesn't come.
void endProgram();

// The entry procedure: paths, second instance, application, program. The exit code.
int enterProgram(int argc, char** argv);

} // namespace shell
