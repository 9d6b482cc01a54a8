#pragma once

#include "files/explorer/explorer_images.h"
#include "platform/os/desktop_menu.h"
#include "platform/os/drives.h"

#include <QString>
#include <vector>

namespace files {

inline constexpr const char* kWorkSpaceKey = "Root_WorkSpace";
inline constexpr const char* kMyComputerKey = "Root_MyComputer";
inline constexpr const char* kControlPanelKey = "Root_ControlPanel";

// What the desktop offers beside folders. Asked anew for each listing.
class Places {
public:
    virtual ~Places() = default;

    [[nodiscard]] virtual std::vector<platform::Drive> drives() const = 0;
    [[nodiscard]] virtual QString favorites() const = 0; // a folder's path, like the next two
    [[nodiscard]] virtual QString documents() const = 0;
    [[nodiscard]] virtual QString network() const = 0;
    [[nodiscard]] virtual std::vector<platform::MenuItem> applets() const = 0;
};

// Those of the desktop that the program runs on: the user's pictures are the favourites, and the
// programs of the menu's category "Settings" are the applets.
[[nodiscard]] const Places& desktopPlaces();

// Which of the places are left out.
struct HiddenPlaces {
    bool favorites = false;
    bool documents = false;
    bool network = false;
    bool controlPanel = false;
};

// A place as tree and list show it.
struct PlaceRow {
    QString key;
    QString text;
    ImageRole image;
};

[[nodiscard]] PlaceRow workSpacePlace();
[[nodiscard]] PlaceRow myComputerPlace();
[[nodiscard]] PlaceRow controlPanelPlace();
[[nodiscard]] PlaceRow networkPlace(const Places& places);
[[nodiscard]] PlaceRow drivePlace(const platform::Drive& drive);

// Favourites and documents, as far as they aren't hidden; their texts are base names.
[[nodiscard]] std::vector<PlaceRow> userPlaces(const Places& places, const HiddenPlaces& hidden);

} // namespace files
