#include "platform/os/entry_facts.h"

#include "platform/os/folder_reader.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"

#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using platform::EntryFacts;
using platform::EntryInspector;
using support::OrdinaryUser;
using support::TempTree;

namespace {

std::optional<EntryFacts> look(const TempTree& tree, const char* name)
{
    const platform::FolderReader folder(tree.path("p"));
    return EntryInspector().look(folder.descriptor(), name);
}

} // namespace

TEST(EntryFacts, FollowLinks)
{
    const TempTree tree({{"p/file", "x"}, {"p/folder/", ""}});
    std::filesystem::create_symlink("folder", tree.native("p/link"));
    std::filesystem::create_symlink("none", tree.native("p/dangling"));
    EXPECT_TRUE(look(tree, "file")->isFile);
    EXPECT_TRUE(look(tree, "folder")->isFolder);
    EXPECT_TRUE(look(tree, "link")->isFolder);
    EXPECT_FALSE(look(tree, "dangling"));
    EXPECT_FALSE(look(tree, "gone"));
}

TEST(EntryFacts, KeepTheTimeOfTheLastChangeApartFromThatOfMaking)
{
    const std::time_t before = std::time(nullptr) - 1;
    const TempTree tree({{"p/file", "x"}});
    const timespec times[] = {{1000, 0}, {2000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, tree.native("p/file").c_str(), times, 0), 0);
    EXPECT_EQ(look(tree, "file")->modified, 2000);
    EXPECT_GE(look(tree, "file")->created, before);
}

TEST(EntryFacts, AreReadOnlyForWhoeverMayNotWrite)
{
    const TempTree tree({{"p/mine", "x"}, {"p/open", "x"}, {"p/closed", "x"}});
    ::chmod(tree.native("").c_str(), 0755);
    ::chmod(tree.native("p/mine").c_str(), 0644);
    ::chmod(tree.native("p/open").c_str(), 0666);
    ::chmod(tree.native("p/closed").c_str(), 0444);
    EXPECT_FALSE(look(tree, "mine")->isReadOnly);
    EXPECT_TRUE(look(tree, "closed")->isReadOnly);
    if (::geteuid() == 0) {
        const OrdinaryUser user;
        EXPECT_TRUE(look(tree, "mine")->isReadOnly);
        EXPECT_FALSE(look(tree, "open")->isReadOnly);
    }
}
