#include "core/own_formats.h"

#include "core/state.h"
#include "core/working_files.h"
#include "platform/pictures/own_format_files.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/test_images.h"
#include "support/full_disk.h"
#include "support/temp_tree.h"

#include <array>

using platform::OnFailure;

namespace {

constexpr std::array kBoth{OnFailure::GoOn, OnFailure::Stop};

class OwnFormats : public testing::Test {
protected:
    OwnFormats() { core::state() = {}; }
    ~OwnFormats() override { core::state() = {}; }

    [[nodiscard]] auto load(const std::string& name, OnFailure onFailure)
    {
        return core::loadOwnFormat(tree.path(name), box, onFailure);
    }

    support::TempTree tree{{"a.pcx", test::pcxFile(12, 5)}, {"words.tga", "words"}};
    platform::PictureBox box{3, 3};
};

} // namespace

TEST_F(OwnFormats, ComeThroughTheWorkingFile)
{
    for (const OnFailure onFailure : kBoth) {
        tree.remove("app/temp.bmp");
        const auto picture = load("a.pcx", onFailure);
        ASSERT_TRUE(picture);
        test::expectPixels(picture->flattened(), test::imageOf(12, 5, [](int x, int y) {
                               const int i = 12 * y + x;
                               return qRgb(i, 255 - i, i / 2);
                           }));
        test::expectPixels(box.surface(), picture->flattened());
        EXPECT_TRUE(platform::loadPicture(tree.path("app/temp.bmp")));
        EXPECT_EQ(core::state().rawImage.Width, 12);
    }
}

TEST_F(OwnFormats, GoOnWithTheRecordWhenAFileIsRefused)
{
    ASSERT_TRUE(load("a.pcx", OnFailure::Stop));
    tree.remove("app/temp.bmp");
    EXPECT_FALSE(load("words.tga", OnFailure::Stop));
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
    const auto picture = load("words.tga", OnFailure::GoOn);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 12);
    EXPECT_TRUE(tree.exists("app/temp.bmp"));
}

TEST_F(OwnFormats, GoOnWithTheOldWorkingFileWhenItCannotBeWritten)
{
    const QImage old = test::numbered(4, 4);
    ASSERT_TRUE(core::saveAs(core::WorkingFile::Picture, platform::Picture(old)));
    const support::FullDisk disk(100);
    EXPECT_FALSE(load("a.pcx", OnFailure::Stop));
    const auto picture = load("a.pcx", OnFailure::GoOn);
    ASSERT_TRUE(picture);
    test::expectPixels(picture->flattened(), old);
}

TEST_F(OwnFormats, GiveNothingWhenNothingWasEverDecoded)
{
    for (const OnFailure onFailure : kBoth) {
        EXPECT_FALSE(load("words.tga", onFailure));
        EXPECT_FALSE(tree.exists("app/temp.bmp"));
        EXPECT_EQ(box.width(), 3);
    }
}
