#include "platform/os/drives.h"

#include "platform/os/mounts.h"

#include <gtest/gtest.h>

using platform::DriveType;
using platform::driveTypeOf;

TEST(Drives, BeginWithTheRootOfAllPaths)
{
    const std::vector<platform::Drive> found = platform::drives();
    ASSERT_EQ(static_cast<qsizetype>(found.size()), 1 + platform::mediaMounts().size());
    EXPECT_EQ(found[0].path, "/");
    EXPECT_TRUE(found[0].isReady);
}

TEST(Drives, HaveTheirTypeFromTheFileSystemFirst)
{
    EXPECT_EQ(driveTypeOf("/media/me/stick", "vfat"), DriveType::Removable);
    EXPECT_EQ(driveTypeOf("/run/media/me/stick", "ext4"), DriveType::Removable);
    EXPECT_EQ(driveTypeOf("/run/media/me/disc", "iso9660"), DriveType::Disc);
    EXPECT_EQ(driveTypeOf("/mnt/share", "nfs4"), DriveType::Network);
    EXPECT_EQ(driveTypeOf("/media/share", "cifs"), DriveType::Network);
    EXPECT_EQ(driveTypeOf("/mnt/data", "ext4"), DriveType::Fixed);
    EXPECT_EQ(driveTypeOf("/", "btrfs"), DriveType::Fixed);
}
