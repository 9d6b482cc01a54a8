#include "files/explorer/explorer_properties.h"

#include "platform/os/user_folders.h"

#include <array>

namespace files {

namespace {

using P = ExplorerProperties;

const std::array kRows{
    ExplorerPropertyRow{"Style", &P::Style},
    ExplorerPropertyRow{"View", &P::View},
    ExplorerPropertyRow{"Path", &P::Path},
    ExplorerPropertyRow{"Filter", &P::Filter},
    ExplorerPropertyRow{"ShowFolders", &P::ShowFolders},
    ExplorerPropertyRow{"BorderStyle", &P::BorderStyle},
    ExplorerPropertyRow{"Arrange", &P::Arrange},
    ExplorerPropertyRow{"CheckBoxes", &P::CheckBoxes},
    ExplorerPropertyRow{"Enabled", &P::Enabled},
    ExplorerPropertyRow{"Font", &P::Font},
    ExplorerPropertyRow{"FullRowSelect", &P::FullRowSelect},
    ExplorerPropertyRow{"GridLines", &P::GridLines},
    ExplorerPropertyRow{"HideColumnHeaders", &P::HideColumnHeaders},
    ExplorerPropertyRow{"HideSelection", &P::HideSelection},
    ExplorerPropertyRow{"HotTracking", &P::HotTracking},
    ExplorerPropertyRow{"LabelEdit", &P::LabelEdit},
    ExplorerPropertyRow{"LabelWrap", &P::LabelWrap},
    ExplorerPropertyRow{"MultiSelect", &P::MultiSelect},
    ExplorerPropertyRow{"MouseIcon", &P::MouseIcon},
    ExplorerPropertyRow{"MousePointer", &P::MousePointer},
    ExplorerPropertyRow{"OleDragMode", &P::OleDragMode},
    ExplorerPropertyRow{"OleDropMode", &P::OleDropMode},
    ExplorerPropertyRow{"SingleSel", &P::SingleSel},
    ExplorerPropertyRow{"Sorted", &P::Sorted},
    ExplorerPropertyRow{"SortKey", &P::SortKey},
    ExplorerPropertyRow{"SortOrder", &P::SortOrder},
    ExplorerPropertyRow{"HideFavorites", &P::HideFavorites},
    ExplorerPropertyRow{"HideMyDocuments", &P::HideMyDocuments},
    ExplorerPropertyRow{"HideNetwork", &P::HideNetwork},
    ExplorerPropertyRow{"HideControlPanel", &P::HideControlPanel},
};

} // namespace

std::span<const ExplorerPropertyRow> explorerPropertyRows()
{
    return kRows;
}

ExplorerProperties freshExplorerProperties()
{
    ExplorerProperties properties;
    properties.Path = platform::currentFolder();
    return properties;
}

void writeProperties(const ExplorerProperties& properties, core::PropertyBag& bag)
{
    const ExplorerProperties fresh = freshExplorerProperties();
    for (const ExplorerPropertyRow& row : kRows) {
        std::visit(
            [&](auto field) {
                bag.write(row.name, core::kept(properties.*field), core::kept(fresh.*field));
            },
            row.field);
    }
}

ExplorerProperties readExplorerProperties(const core::PropertyBag& bag)
{
    ExplorerProperties properties = freshExplorerProperties();
    for (const ExplorerPropertyRow& row : kRows) {
        std::visit(
            [&](auto field) {
                core::assign(bag.read(row.name, core::kept(properties.*field)), properties.*field);
            },
            row.field);
    }
    return properties;
}

} // namespace files
