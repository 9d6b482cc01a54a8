#pragma once

#include <QString>
#include <cstdint>
#include <span>

namespace files {

// An event of the control; its arguments as the types of a signal, without blanks.
struct EventRow {
    const char* name;
    const char* arguments;
};

// All of them, in the order in which they are declared.
[[nodiscard]] std::span<const EventRow> eventRows();

// Those that filling the views raises. A handler may change tree and list.
class PopulationEvents {
public:
    virtual ~PopulationEvents() = default;

    virtual void Change() = 0;
    virtual void FolderExpand(const QString& key) = 0;
    virtual void FolderCollapse(const QString& key) = 0;
    virtual void Progress(std::int16_t percent) = 0;
    virtual void RootExpand(std::int16_t rootType) = 0;
    virtual void RootCollapse(std::int16_t rootType) = 0;
};

} // namespace files
