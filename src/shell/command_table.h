#pragma once

#include <span>

class Form1;

// Every command of the program as data: what it is called, where it stands, what it needs and what
// it does. Menus, toolbars and keys are built by walking these rows.
namespace shell {

// What a command does; the index is the entry's own, for arrays that share one handler.
using Handler = void (*)(Form1& form, int index);

enum class Need { Nothing, Picture };
enum class Check { Never, Toggles };
enum class Since { TheStart, Later }; // in classic mode an entry that came later isn't there

struct MenuRow {
    const char* menu;    // the menu that shows the entry
    const char* array;   // name of the control array, or of the single entry
    int index;           // place in the array, kNoIndex for a single entry
    const char* caption; // with "&" before the access key; kSeparator for a separator
    Need need = Need::Nothing;
    Handler run = nullptr;         // null: the entry does nothing by itself
    const char* opens = nullptr;   // name of the menu that the entry opens
    const char* keyText = nullptr; // shown beside the caption; the key itself stands in keyRows()
    Check check = Check::Never;
    Since since = Since::TheStart;
};

inline constexpr int kNoIndex = -1;
inline constexpr const char* kSeparator = "-";

// Name of the menu bar, and of the menu that the right button opens.
inline constexpr const char* kMenuBar = "menuBar";
inline constexpr const char* kRightMenu = "CmdRm";

std::span<const MenuRow> menuRows();

// A key on the viewer, by the code that its events carry; modifiers aren't looked at.
struct KeyRow {
    int code;
    Need need;
    Handler run;
    int index; // handed to the handler
};

std::span<const KeyRow> keyRows();

// A button of the command toolbar Tbmenu.
struct ButtonRow {
    int index;
    const char* picture; // Images/toolbar/NAME.png
    const char* tip;     // what it does, for tips and screen readers
    Need need;
    Handler run;
    bool gapBefore = false;
};

std::span<const ButtonRow> buttonRows();

// A button of the second toolbar, known by its key text.
struct KeyButtonRow {
    const char* key;
    const char* picture;
    const char* tip;
    Need need;
    Handler run;
};

std::span<const KeyButtonRow> keyButtonRows();

} // namespace shell
