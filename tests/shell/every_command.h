#pragma once

#include "core/window_names.h"
#include "shell/command_table.h"
#include "shell/main_window.h"

#include <array>
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

// Windows that commands open and that this build may not have.
inline constexpr std::array kLaterWindows{
    core::Window::FlashP,        core::Window::MpegForm,      core::Window::FrmBrowser,
    core::Window::frmWebRelease, core::Window::frmMailSender, core::Window::Acquire,
    core::Window::frmTemp,       core::Window::frmCapture,    core::Window::frmCaputreN,
    core::Window::FrmFind,
};
