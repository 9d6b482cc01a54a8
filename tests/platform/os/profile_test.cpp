#include "platform/os/profile.h"

#include "support/temp_tree.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using platform::readProfile;
using platform::writeProfile;
using support::TempTree;

namespace {

constexpr const char* kSection = "QUILLPOST";

struct Profile {
    explicit Profile(const std::string& content)
        : tree({{"app/config.ini", content}})
    {
    }

    [[nodiscard]] QString read(const QString& key, const QString& section = kSection) const
    {
        return readProfile(file(), section, key, "ERROR");
    }
    [[nodiscard]] bool write(const QString& key, const QString& value) const
    {
        return writeProfile(file(), kSection, key, value);
    }
    [[nodiscard]] QString file() const { return tree.path("app/config.ini"); }
    [[nodiscard]] std::string content() const { return tree.content("app/config.ini"); }

    TempTree tree;
};

} // namespace

TEST(ProfileRead, GivesTheFallbackForWhatIsMissing)
{
    const Profile profile("[QUILLPOST]\nBestFit=1\n");
    EXPECT_EQ(profile.read("Panview"), "ERROR");
    EXPECT_EQ(profile.read("BestFit", "OTHER"), "ERROR");
    EXPECT_EQ(readProfile(profile.tree.path("none.ini"), kSection, "BestFit", "ERROR"), "ERROR");
    EXPECT_EQ(readProfile(profile.tree.path("app"), kSection, "BestFit", "ERROR"), "ERROR");
    EXPECT_EQ(profile.read(""), "ERROR");
}

TEST(ProfileRead, MatchesSectionAndKeyWithoutRegardToCase)
{
    const Profile profile("[QuillPost]\nbestFIT=1\n\xC3\x84rger=2\n");
    EXPECT_EQ(profile.read("BestFit"), "1");
    EXPECT_EQ(profile.read(QString::fromUtf8("\xC3\xA4RGER")), "2");
}

TEST(ProfileRead, DropsBlanksAndOnePairOfQuotes)
{
    const Profile profile("  [ QUILLPOST ]  \n  a = one two \t\nb=\" x \"\nc='y'\nd=\"z\ne=\n"
                          "f=\"\"q\"\"\ng==\n");
    EXPECT_EQ(profile.read("a"), "one two");
    EXPECT_EQ(profile.read("b"), " x ");
    EXPECT_EQ(profile.read("c"), "y");
    EXPECT_EQ(profile.read("d"), "\"z");
    EXPECT_EQ(profile.read("e"), "");
    EXPECT_EQ(profile.read("f"), "\"q\"");
    EXPECT_EQ(profile.read("g"), "=");
}

TEST(ProfileRead, LetsTheFirstOfSeveralCount)
{
    const Profile profile("[QUILLPOST]\na=1\na=2\n[X]\nb=9\n[QUILLPOST]\na=3\nb=4\n");
    EXPECT_EQ(profile.read("a"), "1");
    EXPECT_EQ(profile.read("b"), "4");
}

TEST(ProfileRead, PassesOverCommentsAndUnknownLines)
{
    const Profile profile("a=0\n[QUILLPOST]\n;a=1\n#a=2\nnonsense\n[broken\na=3\n");
    EXPECT_EQ(profile.read("a"), "3");
    EXPECT_EQ(profile.read(";a"), "ERROR");
}

TEST(ProfileRead, CutsAt254Characters)
{
    const std::string exact(254, 'x');
    const Profile profile("[QUILLPOST]\na=" + exact + "\nb=" + exact +
                          "y\nc=" + std::string(300, 'z') + "\nd=" + std::string(253, 'x') +
                          "\xF0\x9F\x98\x80\n");
    EXPECT_EQ(profile.read("a").toStdString(), exact);
    EXPECT_EQ(profile.read("b").toStdString(), exact);
    EXPECT_EQ(profile.read("c").size(), 254);
    EXPECT_EQ(profile.read("d").size(), 253);
}

TEST(ProfileRead, CutsAtTheFirstTerminator)
{
    const Profile profile(std::string("[QUILLPOST]\na=one\0two\nb\0c=3\nd=4\n", 32));
    EXPECT_EQ(profile.read("a"), "one");
    EXPECT_EQ(profile.read("d"), "4");
}

TEST(ProfileRead, TakesEitherLineEndAndAByteOrderMark)
{
    const Profile profile("\xEF\xBB\xBF[QUILLPOST]\r\na=1\r\nb=2\nc=3");
    EXPECT_EQ(profile.read("a"), "1");
    EXPECT_EQ(profile.read("b"), "2");
    EXPECT_EQ(profile.read("c"), "3");
}

TEST(ProfileRead, SeesTheEditOfAnotherProcess)
{
    const Profile profile("[QUILLPOST]\na=1\n");
    EXPECT_EQ(profile.read("a"), "1");
    profile.tree.add({"app/config.ini", "[QUILLPOST]\na=2\n"});
    EXPECT_EQ(profile.read("a"), "2");
}

TEST(ProfileRead, CopesWithGarbage)
{
    std::string garbage;
    for (int i = 0; i < 200000; ++i) {
        garbage += static_cast<char>((i * 7919) >> 3);
    }
    const Profile profile(garbage + "\n[QUILLPOST]\na=1\n");
    EXPECT_EQ(profile.read("a"), "1");
    EXPECT_EQ(profile.read("b"), "ERROR");
}

TEST(ProfileWrite, ChangesOneValueAndNothingElse)
{
    const std::string before = "; a comment \xFF\r\n\r\njunk\n[OTHER]\na=0\n[QUILLPOST]\n"
                               "\t A = 1 \r\n ;x\na=7\n\n[LAST]";
    const Profile profile(before);
    EXPECT_TRUE(profile.write("a", "20"));
    EXPECT_EQ(profile.content(), "; a comment \xFF\r\n\r\njunk\n[OTHER]\na=0\n[QUILLPOST]\n"
                                 "\t A = 20 \r\n ;x\na=7\n\n[LAST]");
    EXPECT_EQ(profile.read("a"), "20");
}

TEST(ProfileWrite, AddsAKeyAtTheEndOfItsSection)
{
    const Profile profile("[QUILLPOST]\na=1\n\n[LAST]\nz=1\n");
    EXPECT_TRUE(profile.write("b", "2"));
    EXPECT_EQ(profile.content(), "[QUILLPOST]\na=1\nb=2\n\n[LAST]\nz=1\n");
}

TEST(ProfileWrite, AddsSectionAndFile)
{
    const Profile profile("[OTHER]\nz=1");
    EXPECT_TRUE(profile.write("a", "1"));
    EXPECT_EQ(profile.content(), "[OTHER]\nz=1\n[QUILLPOST]\na=1\n");

    EXPECT_TRUE(writeProfile(profile.tree.path("new.ini"), kSection, "a", "1"));
    EXPECT_EQ(profile.tree.content("new.ini"), "[QUILLPOST]\na=1\n");
}

TEST(ProfileWrite, EndsNewLinesAsTheFileDoes)
{
    const Profile profile("\xEF\xBB\xBF[QUILLPOST]\r\na=1");
    EXPECT_TRUE(profile.write("b", "2"));
    EXPECT_EQ(profile.content(), "\xEF\xBB\xBF[QUILLPOST]\r\na=1\r\nb=2\r\n");
}

TEST(ProfileWrite, FillsAnEmptyValue)
{
    const Profile profile("[QUILLPOST]\na=\nb= \n");
    EXPECT_TRUE(profile.write("a", "1"));
    EXPECT_TRUE(profile.write("b", "2"));
    EXPECT_EQ(profile.content(), "[QUILLPOST]\na=1\nb=2 \n");
}

TEST(ProfileWrite, ChangesTheKeyThatReadingFinds)
{
    const Profile profile("[QUILLPOST]\na=1\n[QUILLPOST]\nb=2\n");
    EXPECT_TRUE(profile.write("b", "3"));
    EXPECT_TRUE(profile.write("c", "4"));
    EXPECT_EQ(profile.content(), "[QUILLPOST]\na=1\nc=4\n[QUILLPOST]\nb=3\n");
}

TEST(ProfileWrite, EndsAValueAtItsFirstLineEnd)
{
    const Profile profile("[QUILLPOST]\n");
    EXPECT_TRUE(profile.write("a", "/pics/two\nb=injected"));
    EXPECT_EQ(profile.read("a"), "/pics/two");
    EXPECT_EQ(profile.read("b"), "ERROR");
}

TEST(ProfileWrite, RefusesNamesThatCouldNotBeReadBack)
{
    const Profile profile("[QUILLPOST]\na=1\n");
    for (const char* const key : {"", " ", "a=b", "a\nb", "[a", ";a", "#a"}) {
        EXPECT_FALSE(profile.write(key, "1")) << key;
    }
    EXPECT_FALSE(writeProfile(profile.file(), "a]b", "k", "1"));
    EXPECT_EQ(profile.content(), "[QUILLPOST]\na=1\n");
}

TEST(ProfileWrite, KeepsUndecodableBytes)
{
    const Profile profile("[QUILLPOST]\n");
    const QString folder = profile.tree.path("bad\xFF\xC3");
    EXPECT_TRUE(profile.write("SpeciFolder", folder));
    EXPECT_EQ(profile.read("SpeciFolder"), folder);
    EXPECT_NE(profile.content().find("bad\xFF\xC3\n"), std::string::npos);
}

TEST(ProfileWrite, KeepsPermissionsAndLeavesNothingBeside)
{
    const Profile profile("[QUILLPOST]\na=1\n");
    const std::string native = profile.tree.native("app/config.ini");
    ::chmod(native.c_str(), 0600);
    EXPECT_TRUE(profile.write("a", "2"));
    struct stat facts = {};
    ::stat(native.c_str(), &facts);
    EXPECT_EQ(facts.st_mode & 0777U, 0600U);
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(profile.tree.native("app"))) {
        files += entry.is_regular_file() ? 1 : 0;
    }
    EXPECT_EQ(files, 1U);
}

TEST(ProfileWrite, OfTheSameValueTouchesNothing)
{
    const Profile profile("[QUILLPOST]\na=1\n");
    struct stat before = {};
    ::stat(profile.tree.native("app/config.ini").c_str(), &before);
    EXPECT_TRUE(profile.write("A", "1"));
    struct stat after = {};
    ::stat(profile.tree.native("app/config.ini").c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST(ProfileWrite, NeverTakesAnUnreadableFileForAnEmptyOne)
{
    const TempTree tree({{"file", "x"}});
    std::filesystem::create_symlink(tree.native("loop"), tree.native("loop"));
    EXPECT_FALSE(writeProfile(tree.path("app"), kSection, "a", "1"));
    EXPECT_FALSE(writeProfile(tree.path("file/x.ini"), kSection, "a", "1"));
    EXPECT_FALSE(writeProfile(tree.path("loop"), kSection, "a", "1"));
    EXPECT_FALSE(writeProfile("/proc/vistara/config.ini", kSection, "a", "1"));
}

TEST(ProfileWrite, KeepsTenMegabytes)
{
    const std::string big(10 * 1024 * 1024, 'x');
    const Profile profile(big + "\n[QUILLPOST]\na=1\n");
    EXPECT_TRUE(profile.write("a", "2"));
    EXPECT_TRUE(profile.content() == big + "\n[QUILLPOST]\na=2\n");
}

TEST(ProfileWrite, WorksWithoutARuntimeFolder)
{
    Profile profile("[QUILLPOST]\na=1\n");
    profile.tree.setVariable("XDG_RUNTIME_DIR", "");
    EXPECT_TRUE(profile.write("a", "2"));
    EXPECT_EQ(profile.read("a"), "2");
}
