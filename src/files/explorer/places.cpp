#include "files/explorer/places.h"

#include "platform/os/paths.h"
#include "platform/os/user_folders.h"

namespace files {

namespace {

using platform::Drive;
using platform::DriveType;

class DesktopPlaces : public Places {
public:
    [[nodiscard]] std::vector<Drive> drives() const override { return platform::drives(); }
    [[nodiscard]] QString favorites() const override { return platform::picturesFolder(); }
    [[nodiscard]] QString documents() const override { return platform::documentsFolder(); }
    [[nodiscard]] QString network() const override { return platform::networkFolder(); }
    [[nodiscard]] std::vector<platform::MenuItem> applets() const override
    {
        return platform::menuItemsOf(QStringLiteral("Settings"));
    }
};

// The name without what stands behind its last dot: "My.Docs" gives "My".
QString baseNameOf(const QString& path)
{
    const QString name = platform::fileNameOf(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.left(dot);
}

PlaceRow rolePlace(const char* key, ImageRole role)
{
    return {QString::fromLatin1(key), roleName(role), role};
}

ImageRole driveImage(DriveType type)
{
    switch (type) {
    case DriveType::Removable:
        return ImageRole::RemovableDrive;
    case DriveType::Fixed:
        return ImageRole::FixedDrive;
    case DriveType::Network:
        return ImageRole::NetworkDrive;
    case DriveType::Disc:
        return ImageRole::DiscDrive;
    case DriveType::Unknown:
        break;
    }
    return ImageRole::Drive;
}

// A drive without a name of its own has that of its type, or none.
QString driveName(const Drive& drive)
{
    switch (drive.type) {
    case DriveType::Removable:
        return roleName(ImageRole::RemovableDrive);
    case DriveType::Fixed:
        return drive.volumeName.isEmpty() ? roleName(ImageRole::FixedDrive) : drive.volumeName;
    case DriveType::Network:
        return drive.shareName;
    case DriveType::Disc:
        return drive.isReady ? drive.volumeName : QString();
    case DriveType::Unknown:
        break;
    }
    return {};
}

} // namespace

const Places& desktopPlaces()
{
    static const DesktopPlaces places;
    return places;
}

PlaceRow workSpacePlace()
{
    return rolePlace(kWorkSpaceKey, ImageRole::WorkSpace);
}

PlaceRow myComputerPlace()
{
    return rolePlace(kMyComputerKey, ImageRole::MyComputer);
}

PlaceRow controlPanelPlace()
{
    return rolePlace(kControlPanelKey, ImageRole::ControlPanel);
}

// Named by its role: the folder's own name tells a user nothing.
PlaceRow networkPlace(const Places& places)
{
    return {places.network(), roleName(ImageRole::Network), ImageRole::Network};
}

PlaceRow drivePlace(const Drive& drive)
{
    return {platform::withSeparator(drive.path), driveName(drive) + " (" + drive.path + ")",
            driveImage(drive.type)};
}

std::vector<PlaceRow> userPlaces(const Places& places, const HiddenPlaces& hidden)
{
    std::vector<PlaceRow> rows;
    if (!hidden.favorites) {
        const QString path = places.favorites();
        rows.push_back({path, baseNameOf(path), ImageRole::Favorites});
    }
    if (!hidden.documents) {
        const QString path = places.documents();
        rows.push_back({path, baseNameOf(path), ImageRole::MyDocuments});
    }
    return rows;
}

} // namespace files
