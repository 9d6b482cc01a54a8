#pragma once

#include "core/property_bag.h"

#include <QString>
#include <QVariant>
#include <cstdint>
#include <span>
#include <variant>

namespace files {

inline constexpr std::int16_t kReportView = 3;

// The properties of the explorer, with the values of a fresh one.
struct ExplorerProperties {
    std::int16_t Style = 0; // 0 tree, 1 list, anything else neither
    std::int16_t View = 0;  // of the list; kReportView shows its columns
    QString Path;
    QString Filter = QStringLiteral("*.*");
    bool ShowFolders = true;
    std::int16_t BorderStyle = 1;
    std::int16_t Arrange = 0;
    bool CheckBoxes = false;
    bool Enabled = true;
    QVariant Font; // not valid: that of the window around
    bool FullRowSelect = false;
    bool GridLines = false;
    bool HideColumnHeaders = false;
    bool HideSelection = true;
    bool HotTracking = false;
    bool HoverSelection = false; // the one that isn't kept
    std::int16_t LabelEdit = 0;  // 0 begins by itself, 1 from code alone
    bool LabelWrap = false;
    bool MultiSelect = false;
    QVariant MouseIcon; // not valid: none
    std::int16_t MousePointer = 0;
    std::int16_t OleDragMode = 0;
    std::int16_t OleDropMode = 0;
    bool SingleSel = false;
    bool Sorted = false;
    std::int16_t SortKey = 0;   // zero-based column
    std::int16_t SortOrder = 0; // 0 ascending, 1 descending
    bool HideFavorites = false;
    bool HideMyDocuments = false;
    bool HideNetwork = false;
    bool HideControlPanel = false;
};

// A row for each property that is kept.
struct ExplorerPropertyRow {
    using P = ExplorerProperties;

    const char* name;
    std::variant<QString P::*, bool P::*, std::int16_t P::*, QVariant P::*> field;
};

[[nodiscard]] std::span<const ExplorerPropertyRow> explorerPropertyRows();

// Those of a fresh explorer: its path is the folder that the process stands in.
[[nodiscard]] ExplorerProperties freshExplorerProperties();

void writeProperties(const ExplorerProperties& properties, core::PropertyBag& bag);

// Missing values, and values that don't fit their property, read as those of a fresh explorer.
[[nodiscard]] ExplorerProperties readExplorerProperties(const core::PropertyBag& bag);

} // namespace files
