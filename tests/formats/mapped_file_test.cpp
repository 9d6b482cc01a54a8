#include "formats/mapped_file.h"

#include "formats/temporary_file.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Reads behind the end of a file that is mapped without a guard. Comes back if the fault was
// mended.
void readForeignMapping(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const auto* bytes =
        static_cast<const volatile char*>(::mmap(nullptr, 100000, PROT_READ, MAP_PRIVATE, file, 0));
    static_cast<void>(bytes[90000]);
}

bool endedBadly(int status)
{
    return !WIFEXITED(status) || WEXITSTATUS(status) != 0;
}

} // namespace

TEST(MappedFile, ShowsTheBytesOfTheFile)
{
    const TemporaryFile onDisk(FileBytes().bytes({1, 2, 3}));
    const auto file = formats::MappedFile::open(onDisk.path());
    ASSERT_TRUE(file);
    ASSERT_EQ(file->bytes().size(), 3U);
    EXPECT_EQ(file->bytes()[2], std::byte{3});
}

TEST(MappedFile, IsEmptyForAnEmptyFile)
{
    const TemporaryFile onDisk((FileBytes()));
    const auto file = formats::MappedFile::open(onDisk.path());
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->bytes().empty());
}

TEST(MappedFile, ReadsZerosWhereTheFileHasShrunk)
{
    const TemporaryFile onDisk(FileBytes().fill(300000, 7));
    const auto file = formats::MappedFile::open(onDisk.path());
    ASSERT_TRUE(file);
    std::filesystem::resize_file(onDisk.path(), 10);
    EXPECT_EQ(file->bytes()[5], std::byte{7});
    EXPECT_EQ(file->bytes()[200000], std::byte{0});
    EXPECT_EQ(file->bytes()[5000], std::byte{0});
    EXPECT_EQ(file->bytes()[299999], std::byte{0});
}

TEST(MappedFile, PutsTheFormerHandlerBack)
{
    struct sigaction before = {};
    ::sigaction(SIGBUS, nullptr, &before);
    {
        const TemporaryFile onDisk(FileBytes().fill(10, 7));
        const auto file = formats::MappedFile::open(onDisk.path());
        struct sigaction during = {};
        ::sigaction(SIGBUS, nullptr, &during);
        EXPECT_NE(during.sa_sigaction, before.sa_sigaction);
    }
    struct sigaction after = {};
    ::sigaction(SIGBUS, nullptr, &after);
    EXPECT_EQ(after.sa_sigaction, before.sa_sigaction);
}

TEST(MappedFile, LeavesFaultsOfOtherMappingsToTheFormerHandler)
{
    const TemporaryFile guarded(FileBytes().fill(300000, 7));
    const TemporaryFile foreign(FileBytes().fill(10, 7));
    EXPECT_EXIT(
        {
            const auto file = formats::MappedFile::open(guarded.path());
            readForeignMapping(foreign.path());
            std::_Exit(0);
        },
        endedBadly, "");
}

TEST(MappedFile, OpensFourFilesAtATime)
{
    const TemporaryFile onDisk(FileBytes().bytes({1, 2, 3}));
    const auto first = formats::MappedFile::open(onDisk.path());
    const auto second = formats::MappedFile::open(onDisk.path());
    const auto third = formats::MappedFile::open(onDisk.path());
    {
        const auto fourth = formats::MappedFile::open(onDisk.path());
        EXPECT_TRUE(first && second && third && fourth);
        EXPECT_FALSE(formats::MappedFile::open(onDisk.path()));
    }
    EXPECT_TRUE(formats::MappedFile::open(onDisk.path()));
}
