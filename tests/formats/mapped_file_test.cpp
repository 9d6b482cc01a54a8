#include "formats/mapped_file.h"

#include "formats/temporary_file.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

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
