#pragma once

#include "core/config_store.h"
#include "core/constants.h"
#include "core/services.h"

#include <map>

namespace support {

// Settings without a file, in place while they live.
class MemoryConfigStore : public core::ConfigStore {
public:
    MemoryConfigStore() { core::services().config = this; }
    ~MemoryConfigStore() override { core::services().config = nullptr; }

    [[nodiscard]] QString read(const QString& key) const override
    {
        const auto found = values.find(key);
        return found == values.end() ? core::kMissingValue : found->second;
    }
    void write(const QString& key, const QString& value) override { values[key] = value; }

    std::map<QString, QString> values;
};

} // namespace support
