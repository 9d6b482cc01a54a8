#include "shell/every_command.h"

#include "shell/menus.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>
#include <set>

namespace {

constexpr int kFlipByKey[] = {86, 72}; // V and H

// Entries that look for the picture themselves, after what they do without one.
bool looksItself(std::string_view array, int index)
{
    const std::set<std::string_view> arrays{"optImage", "optColor", "optFilter"};
    return arrays.contains(array) || (array == "CmdRightEdit" && index == 4);
}

bool deletes(std::string_view array, int index)
{
    return (array == "optEdit" && index == 5) || (array == "CmdRightEdit" && index == 2);
}

CommandRoute routeOf(const shell::MenuRow& row)
{
    CommandRoute route;
    route.name = std::string(row.array) + ' ' + std::to_string(row.index);
    route.handler = row.run;
    route.go = [&row](Form1& form) {
        form.menus().entry(QString::fromLatin1(row.array), row.index)->trigger();
    };
    route.asksForPicture = row.need == shell::Need::Picture || looksItself(row.array, row.index);
    route.deletes = deletes(row.array, row.index);
    route.leaves = route.name == "optFile 14";
    return route;
}

CommandRoute routeOf(const shell::ButtonRow& row)
{
    return {"Tbmenu " + std::to_string(row.index), row.run,
            [&row](Form1& form) { form.toolbars().button(row.index)->click(); },
            row.need == shell::Need::Picture};
}

CommandRoute routeOf(const shell::KeyButtonRow& row)
{
    return {
        std::string("second toolbar ") + row.key, row.run,
        [&row](Form1& form) { form.toolbars().keyButton(QString::fromLatin1(row.key))->click(); },
        row.need == shell::Need::Picture};
}

CommandRoute routeOf(const shell::KeyRow& row)
{
    const bool flips = std::ranges::find(kFlipByKey, row.code) != std::end(kFlipByKey);
    return {"key " + std::to_string(row.code), row.run,
            [&row](Form1& form) { emit form.cpvPicScroll1().KeyDown(row.code, 0); },
            row.need == shell::Need::Picture || flips};
}

} // namespace

std::vector<CommandRoute> everyCommand()
{
    std::vector<CommandRoute> routes;
    for (const shell::MenuRow& row : shell::menuRows()) {
        if (row.run != nullptr) {
            routes.push_back(routeOf(row));
        }
    }
    for (const shell::ButtonRow& row : shell::buttonRows()) {
        routes.push_back(routeOf(row));
    }
    for (const shell::KeyButtonRow& row : shell::keyButtonRows()) {
        routes.push_back(routeOf(row));
    }
    for (const shell::KeyRow& row : shell::keyRows()) {
        routes.push_back(routeOf(row));
    }
    return routes;
}

std::vector<CommandRoute> everyHandler()
{
    std::vector<CommandRoute> routes;
    std::set<shell::Handler> seen;
    for (CommandRoute& route : everyCommand()) {
        if (seen.insert(route.handler).second) {
            routes.push_back(std::move(route));
        }
    }
    return routes;
}
