#pragma once

#include <QString>

namespace core {

// The file name field, Xiala: its text names the file in hand, its drop-down the recent ones.
class FileField {
public:
    virtual ~FileField() = default;

    // The text. Setting it opens nothing.
    [[nodiscard]] virtual QString Xiala() const = 0;
    virtual void setXiala(const QString& text) = 0;
    // Adds a path to the stored list of recent ones and refills the drop-down.
    virtual void addRecentPath(const QString& path) = 0;
    // Fills the drop-down anew after the stored list was changed. The text stays.
    virtual void refillRecentPaths() = 0;
};

} // namespace core
