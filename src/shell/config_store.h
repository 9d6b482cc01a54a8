#pragma once

#include "core/config_store.h"

namespace shell {

// The settings in config.ini under the program's data folder, section QUILLPOST.
class FileConfigStore : public core::ConfigStore {
public:
    [[nodiscard]] QString read(const QString& key) const override;
    void write(const QString& key, const QString& value) override;
};

} // namespace shell
