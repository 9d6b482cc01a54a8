#include "files/explorer/role_icons.h"

#include "platform/os/paths.h"
#include "platform/pictures/delivered_icon.h"

#include <QApplication>
#include <QPixmap>
#include <QStyle>
#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace files {

namespace {

constexpr int kLargeFactor = 2; // of the size that is drawn

constexpr std::array kDesktopIcons{
    std::pair{ImageRole::WorkSpace, QStyle::SP_DesktopIcon},
    std::pair{ImageRole::MyComputer, QStyle::SP_ComputerIcon},
    std::pair{ImageRole::Network, QStyle::SP_DriveNetIcon},
    std::pair{ImageRole::NetworkFolder, QStyle::SP_DirIcon},
    std::pair{ImageRole::Favorites, QStyle::SP_DirIcon},
    std::pair{ImageRole::MyDocuments, QStyle::SP_DirIcon},
    std::pair{ImageRole::Home, QStyle::SP_DirHomeIcon},
    std::pair{ImageRole::Drive, QStyle::SP_DriveHDIcon},
    std::pair{ImageRole::RemovableDrive, QStyle::SP_DriveHDIcon},
    std::pair{ImageRole::FixedDrive, QStyle::SP_DriveHDIcon},
    std::pair{ImageRole::NetworkDrive, QStyle::SP_DriveNetIcon},
    std::pair{ImageRole::DiscDrive, QStyle::SP_DriveCDIcon},
    std::pair{ImageRole::Folder, QStyle::SP_DirIcon},
};

// Only asked for where ours is missing: finding it is slow.
QIcon desktopIcon(ImageRole role)
{
    const auto* const row = std::find_if(kDesktopIcons.begin(), kDesktopIcons.end(),
                                         [role](const auto& pair) { return pair.first == role; });
    return QApplication::style()->standardIcon(row != kDesktopIcons.end() ? row->second
                                                                          : QStyle::SP_FileIcon);
}

// What the screens need of small and large icons, as multiples of the small one's size.
std::set<int> neededFactors()
{
    std::set<int> factors;
    const int ratios = std::min(platform::highestScreenRatio(), platform::kHighestDeliveredRatio);
    for (int ratio = 1; ratio <= ratios; ++ratio) {
        factors.insert({ratio, ratio * kLargeFactor});
    }
    return factors;
}

QIcon loadIcon(ImageRole role)
{
    QIcon icon;
    const QString base = platform::appFile(QStringLiteral("Images/explorer/") + rolePicture(role));
    for (const int factor : neededFactors()) {
        const QImage image = platform::deliveredPng(platform::deliveredVariant(base, factor));
        if (!image.isNull()) {
            icon.addPixmap(QPixmap::fromImage(image));
        }
    }
    return icon.isNull() ? desktopIcon(role) : icon;
}

} // namespace

const QIcon& RoleIcons::icon(ImageRole role)
{
    const auto known = m_icons.find(role);
    return known != m_icons.end() ? known->second
                                  : m_icons.emplace(role, loadIcon(role)).first->second;
}

} // namespace files
