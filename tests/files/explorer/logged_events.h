#pragma once

#include "files/explorer/explorer_events.h"

#include <QStringList>
#include <functional>
#include <vector>

namespace files {

// Writes down what is told, and calls a handler with each line.
class LoggedEvents : public PopulationEvents {
public:
    void Change() override { add("Change"); }
    void FolderExpand(const QString& key) override { add("FolderExpand " + key); }
    void FolderCollapse(const QString& key) override { add("FolderCollapse " + key); }
    void RootExpand(std::int16_t type) override { add("RootExpand " + QString::number(type)); }
    void RootCollapse(std::int16_t type) override { add("RootCollapse " + QString::number(type)); }
    void Progress(std::int16_t percent) override
    {
        told.push_back(percent);
        tell("Progress");
    }

    QStringList log;
    std::vector<int> told;
    std::function<void(const QString&)> handler;

private:
    void add(const QString& line)
    {
        log.append(line);
        tell(line);
    }
    void tell(const QString& line) const
    {
        if (handler) {
            handler(line);
        }
    }
};

} // namespace files
