#include "platform/os/file_transfer.h"
#include "platform/os/files.h"
#include "support/temp_tree.h"
#include "support/unruly_disk.h"

#include <csignal>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

using platform::copyTo;
using platform::moveTo;
using platform::renameFile;
using support::TempTree;
using support::UnrulyDisk;

namespace {

constexpr int kKills = 25;        // of each work, on each kind of disk
constexpr int kLatestKill = 4000; // microseconds

const std::string kOne(std::size_t(3) << 20, '1');
const std::string kTwo((std::size_t(2) << 20) + 7, '2');

// Works without end on the files "here/a" and "there/a" until it is killed.
struct Work {
    const char* name;
    void (*step)(const TempTree& tree);
    bool crossesDisks;
};

std::ostream& operator<<(std::ostream& stream, const Work& work)
{
    return stream << work.name;
}

void copyInTurns(const TempTree& tree)
{
    static_cast<void>(copyTo(tree.path("one"), tree.path("there/a")));
    static_cast<void>(copyTo(tree.path("two"), tree.path("there/a")));
}

void moveToAndFro(const TempTree& tree)
{
    static_cast<void>(moveTo(tree.path("here/a"), tree.path("there/a")));
    static_cast<void>(moveTo(tree.path("there/a"), tree.path("here/a")));
}

void renameToAndFro(const TempTree& tree)
{
    static_cast<void>(renameFile(tree.path("here/a"), tree.path("there/a")));
    static_cast<void>(renameFile(tree.path("there/a"), tree.path("here/a")));
}

class Killed : public testing::TestWithParam<Work> {
protected:
    // A copy has a target to lose, and a rename nothing in its way.
    void prepare() const
    {
        if (GetParam().step == copyInTurns) {
            tree.remove("here/a");
        }
        if (GetParam().step == renameToAndFro && tree.exists("here/a")) {
            tree.remove("there/a");
        }
    }

    // Runs the work in another process and kills it at some time.
    void kill(bool hasUnnamedFiles)
    {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            work(hasUnnamedFiles);
        }
        ::usleep(static_cast<useconds_t>(m_times(m_random)));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    }

    [[nodiscard]] int temporaryFiles() const
    {
        int count = 0;
        for (const char* const folder : {"here", "there"}) {
            for (const auto& entry : std::filesystem::directory_iterator(tree.native(folder))) {
                count += entry.path().filename().native().starts_with('.') ? 1 : 0;
            }
        }
        return count;
    }

    TempTree tree{{{"one", kOne}, {"two", kTwo}, {"here/a", kOne}, {"there/a", kTwo}},
                  TempTree::Medium::Memory};

private:
    [[noreturn]] void work(bool hasUnnamedFiles) const
    {
        UnrulyDisk disk;
        disk.hasUnnamedFiles = hasUnnamedFiles;
        disk.hasSparingRename = hasUnnamedFiles;
        if (GetParam().crossesDisks) {
            disk.otherDisk = tree.native("there");
        }
        while (true) {
            GetParam().step(tree);
        }
    }

    std::mt19937 m_random{20};
    std::uniform_int_distribution<int> m_times{0, kLatestKill};
};

INSTANTIATE_TEST_SUITE_P(Works, Killed,
                         testing::Values(Work{"Copy", copyInTurns, false},
                                         Work{"Move", moveToAndFro, false},
                                         Work{"MoveAcross", moveToAndFro, true},
                                         Work{"Rename", renameToAndFro, false}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(Killed, LeavesWholeFilesAndNothingThatStays)
{
    for (const bool hasUnnamedFiles : {true, false}) {
        int left = 0;
        for (int round = 0; round < kKills; ++round) {
            prepare();
            ASSERT_NO_FATAL_FAILURE(kill(hasUnnamedFiles));
            left += temporaryFiles();
            bool isAnywhere = false;
            for (const char* const name : {"here/a", "there/a"}) {
                const bool isThere = tree.exists(name);
                const std::string content = tree.content(name);
                isAnywhere = isAnywhere || isThere;
                ASSERT_TRUE(!isThere || content == kOne || content == kTwo)
                    << name << " has " << content.size() << " bytes in round " << round;
            }
            ASSERT_TRUE(isAnywhere) << round;
            ASSERT_EQ(tree.content("one"), kOne);
            ASSERT_EQ(tree.content("two"), kTwo);
            ASSERT_TRUE(copyTo(tree.path("two"), tree.path("here/next")));
            ASSERT_TRUE(moveTo(tree.path("here/next"), tree.path("there/next")));
            ASSERT_EQ(temporaryFiles(), 0) << round;
        }
        if (!hasUnnamedFiles && (GetParam().step == copyInTurns || GetParam().crossesDisks)) {
            EXPECT_GT(left, 0) << "no kill came in the middle";
        }
    }
}
