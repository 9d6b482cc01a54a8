#pragma once

#include "shell/command_table.h"
#include "shell/main_window.h"

#include <functional>
#include <string>
#include <vector>

// One way to reach a command: an entry of a menu, a button or a key.
struct CommandRoute {
    std::string name;
    shell::Handler handler = nullptr;
    std::function<void(Form1&)> go;
    bool asksForPicture = false; // says so when there is none
    bool deletes = false;        // asks before it goes on
    bool leaves = false;         // ends the program
};

// Every route of the command table, in its order.
std::vector<CommandRoute> everyCommand();

// The first route of each handler, for tests that start a program for every one.
std::vector<CommandRoute> everyHandler();

// Windows that commands open by name and that this build may not have.
inline const char* const kWindowsByName[] = {
    "FlashP",  "MpegForm", "FrmBrowser",  "frmWebRelease", "frmMailSender",
    "Acquire", "frmTemp",  "frmCapture",  "frmCaputreN",   "Form5rf",
    "FrmFind", "FrmBord",  "OptionsForm", "Movefile",
};
