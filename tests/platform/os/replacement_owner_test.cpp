#include "platform/os/files.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"
#include "support/unruly_disk.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using platform::Flush;
using platform::writeFileWhole;
using support::OrdinaryUser;
using support::TempTree;

namespace {

constexpr gid_t kForeignGroup = 12345;
constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kInheritedList = "system.posix_acl_default";

enum Tag : std::uint16_t { kOwner = 1, kUser = 2, kGroup = 4, kMask = 16, kOthers = 32 };

struct Entry {
    Tag tag;
    std::uint16_t rights;
    std::uint32_t id = 0xFFFFFFFF;
};

// An access list as the system keeps it: version 2, then eight bytes an entry.
std::string listOf(std::initializer_list<Entry> entries)
{
    std::string bytes{2, 0, 0, 0};
    const auto put = [&bytes](std::uint32_t value, int size) {
        for (int i = 0; i < size; ++i, value >>= 8U) {
            bytes += static_cast<char>(value & 0xFFU);
        }
    };
    for (const Entry& entry : entries) {
        put(entry.tag, 2);
        put(entry.rights, 2);
        put(entry.id, 4);
    }
    return bytes;
}

// One more user may read; the group may not.
const std::string kOneMoreReader =
    listOf({{kOwner, 6}, {kUser, 4, 4321}, {kGroup, 0}, {kMask, 4}, {kOthers, 0}});

class Replaced : public testing::Test {
protected:
    Replaced()
    {
        for (const char* const folder : {".", "pics"}) {
            std::filesystem::permissions(tree.native(folder), std::filesystem::perms::all);
        }
    }

    // Makes the file as the user who runs the tests, or for root as another one who lets others
    // write; the group is the tests' own one where only root could give another.
    void make(mode_t mode, gid_t group = ::getgid()) const
    {
        tree.add({"pics/a", "old"});
        if (::getuid() == 0) {
            ASSERT_EQ(::chown(file().c_str(), 1234, group), 0);
        }
        ASSERT_EQ(::chmod(file().c_str(), mode), 0);
    }

    [[nodiscard]] std::string file() const { return tree.native("pics/a"); }

    void save() const
    {
        EXPECT_TRUE(writeFileWhole(tree.path("pics/a"), "new", Flush::ToDisk));
        EXPECT_EQ(contentNow(), "new");
    }

    [[nodiscard]] struct stat facts() const
    {
        struct stat facts = {};
        EXPECT_EQ(::stat(file().c_str(), &facts), 0);
        return facts;
    }
    [[nodiscard]] unsigned mode() const { return facts().st_mode & 07777U; }

    void setAttribute(const char* name, const std::string& value) const
    {
        ASSERT_EQ(::setxattr(file().c_str(), name, value.data(), value.size(), 0), 0)
            << name << ": the file system of the temporary folder must carry attributes";
    }
    [[nodiscard]] std::string attribute(const char* name) const
    {
        std::array<char, 1024> value{};
        const ssize_t size = ::getxattr(file().c_str(), name, value.data(), value.size());
        return {value.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
    }

    TempTree tree{{"pics/", ""}};

private:
    [[nodiscard]] std::string contentNow() const { return tree.content("pics/a"); }
};

} // namespace

TEST_F(Replaced, KeepsOwnerAndGroupForRoot)
{
    make(0640, ::getuid() == 0 ? kForeignGroup : ::getgid());
    const struct stat before = facts();
    save();
    EXPECT_EQ(facts().st_uid, before.st_uid);
    EXPECT_EQ(facts().st_gid, before.st_gid);
    EXPECT_EQ(mode(), 0640U);
}

TEST_F(Replaced, KeepsAGroupThatTheUserIsIn)
{
    make(0666);
    const gid_t group = facts().st_gid;
    const OrdinaryUser user;
    save();
    EXPECT_EQ(facts().st_gid, group);
    EXPECT_EQ(mode(), 0666U);
}

// Only root can give a file a group that the writer isn't in; for everybody else it is kept.
TEST_F(Replaced, GivesNoOtherGroupWhatTheOldOneHad)
{
    const bool isRoot = ::getuid() == 0;
    make(0662, isRoot ? kForeignGroup : ::getgid());
    {
        const OrdinaryUser user;
        EXPECT_TRUE(writeFileWhole(tree.path("pics/a"), "new", Flush::ToDisk));
    }
    EXPECT_EQ(mode(), isRoot ? 0622U : 0662U);
    EXPECT_EQ(tree.content("pics/a"), "new");
}

// Whoever was in the old group is one of the others afterwards.
TEST_F(Replaced, GivesTheOldGroupNoMoreThanItHad)
{
    const bool isRoot = ::getuid() == 0;
    make(0626, isRoot ? kForeignGroup : ::getgid());
    {
        const OrdinaryUser user;
        EXPECT_TRUE(writeFileWhole(tree.path("pics/a"), "new", Flush::ToDisk));
    }
    EXPECT_EQ(mode(), isRoot ? 0622U : 0626U);
}

TEST_F(Replaced, NeverRunsAsItsOwnerOrGroup)
{
    make(07777);
    save();
    EXPECT_EQ(mode(), 0777U);
    make(07777);
    const OrdinaryUser user;
    save();
    EXPECT_EQ(mode(), 0777U);
}

TEST_F(Replaced, KeepsAttributesAndAccessList)
{
    for (const bool isOrdinary : {false, true}) {
        make(0666);
        setAttribute("user.xdg.comment", "a note");
        setAttribute("user.empty", "");
        const std::string list =
            listOf({{kOwner, 6}, {kUser, 4, 4321}, {kGroup, 6}, {kMask, 6}, {kOthers, 4}});
        setAttribute(kAccessList, list);
        std::optional<OrdinaryUser> user;
        if (isOrdinary) {
            user.emplace();
        }
        save();
        EXPECT_EQ(attribute("user.xdg.comment"), "a note");
        EXPECT_EQ(::getxattr(file().c_str(), "user.empty", nullptr, 0), 0);
        EXPECT_EQ(attribute(kAccessList), list);
    }
}

TEST_F(Replaced, KeepsItsGroupOutWhereAnAccessListSaysSo)
{
    make(0600);
    setAttribute(kAccessList, kOneMoreReader);
    save();
    EXPECT_EQ(attribute(kAccessList), kOneMoreReader);
    EXPECT_EQ(mode(), 0640U); // the bits of the group are the list's mask
}

TEST_F(Replaced, DropsTheLostGroupFromItsAccessList)
{
    const bool isRoot = ::getuid() == 0;
    make(0666, isRoot ? kForeignGroup : ::getgid());
    const auto listWithGroup = [](std::uint16_t rights) {
        return listOf({{kOwner, 6}, {kUser, 4, 4321}, {kGroup, rights}, {kMask, 6}, {kOthers, 2}});
    };
    setAttribute(kAccessList, listWithGroup(6));
    {
        const OrdinaryUser user;
        EXPECT_TRUE(writeFileWhole(tree.path("pics/a"), "new", Flush::ToDisk));
    }
    EXPECT_EQ(tree.content("pics/a"), "new");
    EXPECT_EQ(attribute(kAccessList), listWithGroup(isRoot ? 2 : 6));
}

TEST_F(Replaced, TakesNoAccessListFromItsFolder)
{
    make(0600);
    const std::string everybody =
        listOf({{kOwner, 6}, {kUser, 6, 4321}, {kGroup, 6}, {kMask, 6}, {kOthers, 6}});
    ASSERT_EQ(::setxattr(tree.native("pics").c_str(), kInheritedList, everybody.data(),
                         everybody.size(), 0),
              0);
    save();
    EXPECT_EQ(attribute(kAccessList), "");
    EXPECT_EQ(mode(), 0600U);
}

TEST_F(Replaced, IsPrivateWhileItIsWritten)
{
    make(0600);
    support::UnrulyDisk disk;
    disk.hasUnnamedFiles = false;
    unsigned mode = 0;
    disk.beforeRename = [&] {
        for (const auto& entry : std::filesystem::directory_iterator(tree.native("pics"))) {
            struct stat facts = {};
            ::stat(entry.path().c_str(), &facts);
            mode |= facts.st_mode & 0777U;
        }
    };
    save();
    EXPECT_EQ(mode, 0600U);
}

TEST_F(Replaced, KeepsOnlyTheOwnersRightsWhereItsAccessListIsLost)
{
    make(0600);
    setAttribute(kAccessList, kOneMoreReader);
    support::UnrulyDisk disk;
    disk.hasAttributes = false;
    save();
    EXPECT_EQ(mode(), 0600U);
}
