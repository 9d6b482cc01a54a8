#include "core/working_files.h"

#include "platform/pictures/picture_loader.h"
#include "platform/pictures/test_images.h"
#include "support/temp_tree.h"

#include <array>

using core::WorkingFile;

namespace {

struct NamedFile {
    WorkingFile file;
    const char* name;
    bool stays; // when the program ends
};

constexpr std::array kFiles{
    NamedFile{WorkingFile::BeforeEdit, "app/Frametemp.bmp", false},
    NamedFile{WorkingFile::Picture, "app/temp.bmp", false},
    NamedFile{WorkingFile::Unwritten, "app/Temp2.bmp", false},
    NamedFile{WorkingFile::Transform, "app/Images/Temp.bmp", false},
    NamedFile{WorkingFile::Save, "app/saveTemp.bmp", true},
    NamedFile{WorkingFile::JpegPreview, "app/saveJpgTemp.jpg", true},
    NamedFile{WorkingFile::AlbumPage, "app/Tmp.bmp", true},
    NamedFile{WorkingFile::Wallpaper, "app/Wallpaper.bmp", true},
};

} // namespace

TEST(WorkingFiles, HaveFixedNamesInTheProgramsFolder)
{
    const support::TempTree tree;
    for (const NamedFile& file : kFiles) {
        EXPECT_EQ(core::workingFile(file.file), tree.path(file.name));
    }
}

TEST(WorkingFiles, GoWithTheProgramUnlessSomebodyNeedsThemLonger)
{
    support::TempTree tree({{"app/temp.bmp.txt", "another's"}});
    for (const NamedFile& file : kFiles) {
        tree.add({file.name, "pixels"});
    }
    core::removeWorkingFiles();
    for (const NamedFile& file : kFiles) {
        EXPECT_EQ(tree.exists(file.name), file.stays) << file.name;
    }
    EXPECT_TRUE(tree.exists("app/temp.bmp.txt"));
    core::removeWorkingFiles(); // what isn't there is no hindrance
}

TEST(WorkingFiles, GiveAPictureBack)
{
    const support::TempTree tree;
    const QImage image = test::numbered(9, 7);
    ASSERT_TRUE(core::saveAs(WorkingFile::Save, platform::Picture(image)));
    const auto picture = platform::loadPicture(tree.path("app/saveTemp.bmp"));
    ASSERT_TRUE(picture);
    test::expectPixels(picture->flattened(), image);
}

TEST(WorkingFiles, TellThatTheyCouldNotBeWritten)
{
    const support::TempTree tree({{"app/saveTemp.bmp/in the way", ""}});
    EXPECT_FALSE(core::saveAs(WorkingFile::Save, platform::Picture(test::numbered(9, 7))));
    EXPECT_TRUE(tree.exists("app/saveTemp.bmp/in the way"));
}

TEST(WorkingFiles, HoldThePictureThatIsWritten)
{
    const support::TempTree tree;
    QImage image = test::numbered(9, 7).convertToFormat(QImage::Format_ARGB32);
    image.setPixelColor(4, 4, Qt::transparent);
    const auto written = core::writtenAs(WorkingFile::Picture, platform::Picture(image));
    const auto read = platform::loadPicture(tree.path("app/temp.bmp"));
    ASSERT_TRUE(written && read);
    EXPECT_EQ(written->image(), read->image());
    EXPECT_EQ(written->image().format(), QImage::Format_RGB32);
}

TEST(WorkingFiles, GiveNothingThatCouldNotBeWritten)
{
    const support::TempTree tree({{"app/temp.bmp/", ""}});
    EXPECT_FALSE(core::writtenAs(WorkingFile::Picture, platform::Picture(test::numbered(9, 7))));
    EXPECT_FALSE(core::writtenAs(WorkingFile::Save, platform::Picture()));
}
