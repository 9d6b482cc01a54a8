#include "files/explorer/root_listing.h"

namespace files {

namespace {

void addPlace(ListRows& rows, const PlaceRow& place, RowTag tag)
{
    RowFacts facts;
    facts.tag = tag;
    facts.image = place.image;
    rows.addPlace(place.key, place.text, facts);
}

ListRows listWorkSpace(const Places& places, const HiddenPlaces& hidden)
{
    ListRows rows;
    addPlace(rows, myComputerPlace(), RowTag::Root);
    if (!hidden.network) {
        addPlace(rows, networkPlace(places), RowTag::Root);
    }
    if (!hidden.controlPanel) {
        addPlace(rows, controlPanelPlace(), RowTag::Root);
    }
    return rows;
}

ListRows listMyComputer(const Places& places, const HiddenPlaces& hidden,
                        const ProgressHandler& progress)
{
    ListRows rows;
    const std::vector<platform::Drive> drives = places.drives();
    std::int64_t number = 0;
    for (const platform::Drive& drive : drives) {
        progress(PercentOf(++number, static_cast<std::int64_t>(drives.size())));
        addPlace(rows, drivePlace(drive), RowTag::Folder);
    }
    for (const PlaceRow& place : userPlaces(places, hidden)) {
        addPlace(rows, place, RowTag::Folder);
    }
    progress(0);
    return rows;
}

ListRows listControlPanel(const Places& places, const ProgressHandler& progress)
{
    progress(50);
    ListRows rows;
    for (const platform::MenuItem& item : places.applets()) {
        const QString name = item.name.trimmed();
        if (!name.isEmpty()) {
            addPlace(rows, {item.file, name, ImageRole::Applet}, RowTag::File);
        }
    }
    progress(100);
    rows.sort(ListColumn::Name, SortOrder::Ascending);
    progress(0);
    return rows;
}

} // namespace

ListRows listRoot(RootType type, const Places& places, const HiddenPlaces& hidden,
                  const ProgressHandler& progress)
{
    switch (type) {
    case RootType::WorkSpace:
        return listWorkSpace(places, hidden);
    case RootType::MyComputer:
        return listMyComputer(places, hidden, progress);
    case RootType::ControlPanel:
        break;
    }
    return listControlPanel(places, progress);
}

} // namespace files
