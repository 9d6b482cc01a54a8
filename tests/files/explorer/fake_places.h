#pragma once

#include "files/explorer/places.h"

namespace files {

// Drives C (fixed, without a name), D (a disc drive that isn't ready) and E (a network drive).
class FakePlaces : public Places {
public:
    [[nodiscard]] std::vector<platform::Drive> drives() const override { return driveList; }
    [[nodiscard]] QString favorites() const override { return favoritesPath; }
    [[nodiscard]] QString documents() const override { return documentsPath; }
    [[nodiscard]] QString network() const override { return networkPath; }
    [[nodiscard]] std::vector<platform::MenuItem> applets() const override { return appletList; }

    std::vector<platform::Drive> driveList = {
        {"C:", platform::DriveType::Fixed, "", "", true},
        {"D:", platform::DriveType::Disc, "Unread", "", false},
        {"E:", platform::DriveType::Network, "", "//host/share", true},
    };
    QString favoritesPath = "/home/me/Pictures";
    QString documentsPath = "/home/me/My.Docs";
    QString networkPath = "/run/user/1/gvfs";
    std::vector<platform::MenuItem> appletList;
};

} // namespace files
