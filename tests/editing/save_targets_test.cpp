#include "editing/save_pipeline.h"

#include "editing/edit_fixture.h"
#include "support/full_disk.h"
#include "support/ordinary_user.h"
#include "support/unruly_disk.h"

#include <QPushButton>
#include <QTimer>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

using test::expectPixels;
using test::numbered;
namespace fs = std::filesystem;

namespace {

enum Format { kBmp = 1, kGif = 2, kJpeg = 3 };

// Saves under every format to places that files may be in or not.
class SaveTargets : public EditTest, public testing::WithParamInterface<Format> {
protected:
    SaveTargets()
    {
        for (const char* const folder : {".", "app", "app/Images"}) {
            fs::permissions(tree.native(folder), fs::perms::all);
        }
        showInViewer(m_image);
    }

    // The whole command. The JPEG window is agreed to, and cancelled if it stays open then.
    void saveTo(const QString& path)
    {
        dialogs.boxes.clear();
        dialogs.saveAnswers.push_back(platform::SaveChoice{path, GetParam()});
        if (GetParam() == kJpeg) {
            QTimer::singleShot(0, qApp, [] {
                press("Command1_0");
                press("Command1_1");
            });
        }
        editing::save(form, editing::SaveSource::Picture, {});
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        // The JPEG window names its file; there is no other box.
        EXPECT_EQ(dialogs.boxTexts(), GetParam() == kJpeg ? QStringList(path) : QStringList());
    }

    static void press(const char* button)
    {
        QWidget* window = core::windows().find(core::Window::frmSaveJPGc);
        if (window != nullptr && core::windows().isLoaded(core::Window::frmSaveJPGc)) {
            window->findChild<QPushButton*>(button)->click();
        }
    }

    void expectSaved(const std::string& name, const QImage& image) const
    {
        static const std::map<Format, std::string> kBegins{
            {kBmp, "BM"}, {kGif, "GIF87a"}, {kJpeg, "\xFF\xD8"}};
        const std::string& begin = kBegins.at(GetParam());
        EXPECT_EQ(tree.content(name).substr(0, begin.size()), begin) << name;
        const auto saved = platform::loadPicture(tree.path(name));
        ASSERT_TRUE(saved) << name;
        if (GetParam() == kJpeg) {
            EXPECT_EQ(saved->image().size(), image.size());
        } else {
            expectPixels(saved->flattened(), image);
        }
    }
    void expectSaved(const std::string& name) const { expectSaved(name, m_image); }

    [[nodiscard]] std::size_t entriesIn(const std::string& folder) const
    {
        const fs::directory_iterator first(tree.native(folder));
        return static_cast<std::size_t>(std::distance(first, fs::directory_iterator()));
    }

    // Few colours, so that GIF keeps them.
    QImage m_image =
        test::imageOf(40, 20, [](int x, int y) { return qRgb(6 * x, 80 * (y % 4), 99); });
};

std::string nameOf(const testing::TestParamInfo<Format>& row)
{
    return row.param == kBmp ? "Bmp" : row.param == kGif ? "Gif" : "Jpeg";
}

INSTANTIATE_TEST_SUITE_P(Formats, SaveTargets, testing::Values(kBmp, kGif, kJpeg), nameOf);

} // namespace

TEST_P(SaveTargets, AreReplacedWithAllTheirPermissions)
{
    tree.add({"out/old", std::string(300000, 'x')});
    ::chmod(tree.native("out/old").c_str(), 0640);
    saveTo(tree.path("out/old"));
    expectSaved("out/old");
    EXPECT_EQ(fs::status(tree.native("out/old")).permissions(), fs::perms(0640));
    EXPECT_EQ(entriesIn("out"), 1U);
}

TEST_P(SaveTargets, StayWhenTheyAreReadOnly)
{
    tree.add({"out/locked", "kept"});
    fs::permissions(tree.native("out"), fs::perms::all);
    ::chmod(tree.native("out/locked").c_str(), 0444);
    const support::OrdinaryUser user;
    saveTo(tree.path("out/locked"));
    EXPECT_EQ(tree.content("out/locked"), "kept");
    EXPECT_EQ(entriesIn("out"), 1U);
}

TEST_P(SaveTargets, AreNotMadeInAReadOnlyFolder)
{
    tree.add({"out/", ""});
    ::chmod(tree.native("out").c_str(), 0555);
    const support::OrdinaryUser user;
    saveTo(tree.path("out/new"));
    EXPECT_EQ(entriesIn("out"), 0U);
}

TEST_P(SaveTargets, StayWhenTheDiskIsFull)
{
    tree.add({"out/old", "kept"});
    std::optional<support::FullDisk> disk;
    dialogs.whileOpen = [&disk] {
        if (!disk) {
            disk.emplace(100);
        }
    };
    saveTo(tree.path("out/old"));
    saveTo(tree.path("out/new"));
    disk.reset();
    EXPECT_EQ(tree.content("out/old"), "kept");
    EXPECT_EQ(entriesIn("out"), 1U);
}

// Everything was taken, and what is lost is told only when the bytes are asked to be on the disk or
// when the file is closed.
TEST_P(SaveTargets, StayWhenTheDiskFailsLate)
{
    const std::string old(300000, 'x');
    tree.add({"out/old", old});
    for (int support::UnrulyDisk::*const call :
         {&support::UnrulyDisk::syncError, &support::UnrulyDisk::closeError}) {
        support::UnrulyDisk disk;
        dialogs.whileOpen = [&] { disk.*call = ENOSPC; };
        saveTo(tree.path("out/old"));
        saveTo(tree.path("out/new"));
        EXPECT_TRUE(tree.content("out/old") == old);
        EXPECT_EQ(entriesIn("out"), 1U);
    }
    dialogs.whileOpen = {};
    saveTo(tree.path("out/old"));
    expectSaved("out/old");
}

TEST_P(SaveTargets, AreWrittenWhereTheyStandInAReadOnlyFolder)
{
    tree.add({"out/old", std::string(300000, 'x')});
    ::chmod(tree.native("out/old").c_str(), 0666);
    ::chmod(tree.native("out").c_str(), 0555);
    const std::size_t filesOfTheProgram = entriesIn("app");
    {
        const support::OrdinaryUser user;
        saveTo(tree.path("out/old"));
    }
    expectSaved("out/old");
    EXPECT_EQ(entriesIn("out"), 1U);
    // What a save leaves there anyway.
    EXPECT_LE(entriesIn("app"), filesOfTheProgram + (GetParam() == kJpeg ? 2 : 1));
}

TEST_P(SaveTargets, AreNeverFoldersPipesOrDevices)
{
    tree.add({"out/folder/file", "kept"});
    ASSERT_EQ(::mkfifo(tree.native("out/pipe").c_str(), 0666), 0);
    saveTo(tree.path("out/folder"));
    saveTo(tree.path("out/folder/"));
    saveTo(tree.path("out/pipe"));
    saveTo("/dev/full");
    saveTo("/dev/null");
    EXPECT_EQ(tree.content("out/folder/file"), "kept");
    EXPECT_TRUE(fs::is_fifo(tree.native("out/pipe")));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(entriesIn("out"), 2U);
}

TEST_P(SaveTargets, BehindALinkAreWrittenAndTheLinkStays)
{
    tree.add({"out/real", "old"});
    ::chmod(tree.native("out/real").c_str(), 0604);
    fs::create_symlink("out/real", tree.native("link"));
    saveTo(tree.path("link"));
    EXPECT_TRUE(fs::is_symlink(tree.native("link")));
    expectSaved("out/real");
    EXPECT_EQ(fs::status(tree.native("out/real")).permissions(), fs::perms(0604));
}

TEST_P(SaveTargets, BehindADanglingLinkAreMade)
{
    tree.add({"out/", ""});
    fs::create_symlink("out/new", tree.native("link"));
    saveTo(tree.path("link"));
    EXPECT_TRUE(fs::is_symlink(tree.native("link")));
    expectSaved("out/new");
}

TEST_P(SaveTargets, BehindALinkIntoNowhereAreNotMade)
{
    fs::create_symlink("none/new", tree.native("nowhere"));
    fs::create_symlink("circle", tree.native("circle"));
    for (const char* const name : {"nowhere", "circle"}) {
        saveTo(tree.path(name));
        EXPECT_TRUE(fs::is_symlink(tree.native(name))) << name;
        EXPECT_FALSE(fs::exists(fs::status(tree.native("none")))) << name;
    }
}

TEST_P(SaveTargets, MayBeTheFileThatIsShown)
{
    saveTo(tree.path("shown"));
    const auto picture = platform::loadPicture(tree.path("shown"));
    ASSERT_TRUE(picture);
    form.viewer().setPicture(*picture);
    saveTo(tree.path("shown"));
    expectSaved("shown");
    EXPECT_EQ(form.viewer().PictureWidth(), m_image.width());
}

TEST_P(SaveTargets, MayVanishWhileTheDialogIsOpen)
{
    tree.add({"stick/old", "old"});
    dialogs.whileOpen = [this] { tree.remove("stick"); };
    saveTo(tree.path("stick/old"));
    saveTo(tree.path("stick/new"));
    EXPECT_FALSE(tree.exists("stick"));
}

// As a stick that was pulled out: the folder answers no more, but the way to it still stands.
TEST_P(SaveTargets, MayBeInAFolderThatIsGoneButOpen)
{
    tree.add({"stick/", ""});
    const int folder = ::open(tree.native("stick").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(folder, 0);
    tree.remove("stick");
    saveTo(QStringLiteral("/proc/self/fd/%1/new").arg(folder));
    ::close(folder);
}

TEST_P(SaveTargets, KeepTheNameThatWasTyped)
{
    tree.add({"out/", ""});
    const std::vector<std::string> names{"plain",    "a.bmp",     "b.gif",       "c.jpg",
                                         "d.tar.gz", "e.",        " blanks ",    ".hidden",
                                         "#1%;'\"",  "bad\xFF.x", "two\nlines.x"};
    for (const std::string& name : names) {
        saveTo(tree.path("out/" + name));
        expectSaved("out/" + name);
    }
    EXPECT_EQ(entriesIn("out"), names.size());
}

TEST_P(SaveTargets, AreNotMadeUnderImpossibleNames)
{
    tree.add({"out/file", "kept"});
    saveTo(tree.path("out/" + std::string(256, 'n')));
    saveTo(tree.path("out/" + std::string(5000, 'n')));
    saveTo(tree.path("out/file/new"));
    saveTo(QString());
    EXPECT_EQ(tree.content("out/file"), "kept");
    EXPECT_EQ(entriesIn("out"), 1U);
}

// ---- pictures at the limits ----

TEST_P(SaveTargets, TakeThinPicturesUpToTheLongestOfTheFormat)
{
    tree.add({"out/", ""});
    for (const QSize size : {QSize(1, 1), QSize(1, 600), QSize(600, 1), QSize(3, 2),
                             QSize(65500, 1), QSize(1, 65500)}) {
        const QImage image = test::filled(size.width(), size.height(), qRgb(10, 200, 90));
        showInViewer(image);
        saveTo(tree.path("out/thin"));
        expectSaved("out/thin", image);
    }
}

TEST_P(SaveTargets, StayForAPictureBeyondTheFormat)
{
    static const std::map<Format, int> kTooLong{{kGif, 65536}, {kJpeg, 65501}};
    tree.add({"out/old", "kept"});
    const auto tooLong = kTooLong.find(GetParam());
    const QImage image = test::filled(65501, 1, qRgb(10, 200, 90));
    if (tooLong == kTooLong.end()) {
        showInViewer(image);
        saveTo(tree.path("out/old"));
        expectSaved("out/old", image);
        return;
    }
    showInViewer(test::filled(tooLong->second, 1, qRgb(10, 200, 90)));
    saveTo(tree.path("out/old"));
    EXPECT_EQ(tree.content("out/old"), "kept");
    EXPECT_EQ(entriesIn("out"), 1U);
}

TEST_P(SaveTargets, StayForAPictureWithoutPixels)
{
    tree.add({"out/old", "kept"});
    saveTo(tree.path("earlier"));
    form.fakeViewer.picture = platform::Picture();
    saveTo(tree.path("out/old"));
    EXPECT_EQ(tree.content("out/old"), "kept");
}

// ---- a program's folder that can't be written ----

TEST_P(SaveTargets, NeverGetAnEarlierPicture)
{
    saveTo(tree.path("earlier"));
    const QImage other = test::filled(7, 9, qRgb(1, 2, 3));
    showInViewer(other);
    std::optional<support::FullDisk> disk(std::in_place, 60);
    dialogs.whileOpen = [&disk] { disk.reset(); };
    saveTo(tree.path("later"));
    if (GetParam() == kJpeg) {
        // There is nothing to convert.
        EXPECT_FALSE(tree.exists("later"));
    } else {
        expectSaved("later", other);
    }
}

TEST_P(SaveTargets, AreNotAskedForWhereOnlyAnEarlierPictureIsAtHand)
{
    saveTo(tree.path("earlier"));
    const std::size_t dialogsBefore = dialogs.fileRequests.size();
    showInViewer(test::filled(7, 9, qRgb(1, 2, 3)));
    ::chmod(tree.native("app").c_str(), 0555);
    {
        const support::OrdinaryUser user;
        editing::save(form, editing::SaveSource::Picture, {});
    }
    ::chmod(tree.native("app").c_str(), 0755); // so that it can be removed
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_EQ(dialogs.fileRequests.size(), dialogsBefore);
    expectFile("saveTemp.bmp", m_image);
}
