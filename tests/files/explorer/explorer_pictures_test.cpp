#include "files/explorer/explorer_pictures.h"

#include "files/explorer/ctl_explorer.h"
#include "files/explorer/fake_places.h"
#include "support/temp_tree.h"

#include <QAbstractItemView>
#include <QImage>
#include <filesystem>
#include <gtest/gtest.h>

using files::ExplorerPictures;
using files::ImageRole;
using files::PictureSource;
using files::RoleIcons;
using support::TempTree;

namespace {

constexpr int kSmall = 16;
constexpr int kLarge = 32;

QString deliveredFolder()
{
    return QStringLiteral(PROGRAM_FOLDER "/Images/explorer/");
}

QImage drawing(const char* name, const char* ending)
{
    return QImage(deliveredFolder() + name + ending).convertToFormat(QImage::Format_ARGB32);
}

QImage shown(const QIcon& icon, int side, qreal ratio)
{
    QImage image = icon.pixmap(QSize(side, side), ratio).toImage();
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_ARGB32);
}

// A program's folder that has the delivered pictures.
class WithPictures : public testing::Test {
protected:
    WithPictures()
    {
        std::filesystem::create_directory_symlink(PROGRAM_FOLDER "/Images",
                                                  disk.path("app").toStdString() + "/Images");
    }

    TempTree disk;
};

using RoleIconsTest = WithPictures;
using ExplorerPicturesTest = WithPictures;

} // namespace

TEST_F(RoleIconsTest, HaveADrawingOfEachRoleForEveryScreen)
{
    for (const files::RoleRow& row : files::roleRows()) {
        int factor = 1;
        for (const char* const ending :
             {".png", "@2x.png", "@3x.png", "@4x.png", "@5x.png", "@6x.png"}) {
            EXPECT_EQ(drawing(row.picture, ending).size(), QSize(kSmall, kSmall) * factor)
                << row.picture << ending;
            ++factor;
        }
    }
}

TEST_F(RoleIconsTest, ShowTheDrawingOfTheirSizePixelForPixel)
{
    RoleIcons icons;
    for (const files::RoleRow& row : files::roleRows()) {
        const QIcon& icon = icons.icon(row.role);
        EXPECT_EQ(shown(icon, kSmall, 1), drawing(row.picture, ".png")) << row.picture;
        EXPECT_EQ(shown(icon, kLarge, 1), drawing(row.picture, "@2x.png")) << row.picture;
        EXPECT_EQ(shown(icon, kSmall, 2), drawing(row.picture, "@2x.png")) << row.picture;
    }
}

// Dark on light and light on dark alike: each drawing has both an edge that stands out from white
// and an area that stands out from black.
TEST_F(RoleIconsTest, StandOutFromLightAndFromDarkGrounds)
{
    for (const files::RoleRow& row : files::roleRows()) {
        const QImage image = drawing(row.picture, ".png");
        int dark = 0;
        int light = 0;
        for (int i = 0; i < kSmall * kSmall; ++i) {
            const QColor colour = image.pixelColor(i % kSmall, i / kSmall);
            const bool isPainted = colour.alpha() > 200;
            const int grey = qGray(colour.rgb());
            dark += isPainted && grey < 160 ? 1 : 0;
            light += isPainted && grey > 95 ? 1 : 0;
        }
        EXPECT_GT(dark, kSmall) << row.picture;
        EXPECT_GT(light, kSmall) << row.picture;
    }
}

TEST(RoleIcons, FallBackToTheDesktopsOwn)
{
    const TempTree bare;
    RoleIcons icons;
    EXPECT_FALSE(icons.icon(ImageRole::Folder).isNull());
    EXPECT_FALSE(icons.icon(ImageRole::Archive).isNull());
}

TEST_F(ExplorerPicturesTest, GiveTheNodesAtTheTopTheFirstTwoImages)
{
    ExplorerPictures pictures;
    EXPECT_EQ(pictures.imgFolder.count(), 2);
    EXPECT_EQ(pictures.imgFolder.GetIconIndex("Root_WorkSpace", ImageRole::WorkSpace), 1);
    EXPECT_EQ(pictures.imgFolder.GetIconIndex("Root_MyComputer", ImageRole::MyComputer), 2);
}

TEST_F(ExplorerPicturesTest, EnterWhatIsShownIntoTheListOfItsSize)
{
    ExplorerPictures pictures;
    bool isLarge = false;
    const PictureSource list = pictures.ofList([&isLarge] { return isLarge; });
    const PictureSource tree = pictures.ofTree();
    EXPECT_EQ(shown(list(ImageRole::Picture, "/p/a.jpg").value<QIcon>(), kSmall, 1),
              drawing("picture", ".png"));
    EXPECT_EQ(pictures.ImgFiles16.count(), 1);
    EXPECT_EQ(pictures.ImgFiles32.count(), 0);
    isLarge = true;
    list(ImageRole::Picture, "/p/a.jpg");
    EXPECT_EQ(pictures.ImgFiles32.count(), 1);
    tree(ImageRole::Folder, "/p");
    EXPECT_EQ(pictures.imgFolder.count(), 3);
    EXPECT_EQ(pictures.ImgFiles16.count(), 1);
}

TEST_F(ExplorerPicturesTest, StandInBothViews)
{
    disk.add({"d/a.mp3", ""});
    const files::FakePlaces places;
    core::PropertyBag bag;
    bag.write("Path", disk.path("d"), "");
    bag.write("Style", 1, 0);
    ctlExplorer explorer(nullptr, bag, places);
    const auto first = [&explorer](const char* view) {
        const QAbstractItemModel& model = *explorer.findChild<QAbstractItemView*>(view)->model();
        return shown(model.index(0, 0).data(Qt::DecorationRole).value<QIcon>(), kLarge, 1);
    };
    EXPECT_EQ(first("ListView1"), drawing("sound", "@2x.png"));
    explorer.set(&files::ExplorerProperties::Style, 0);
    EXPECT_EQ(first("TreeView1"), drawing("workspace", "@2x.png"));
}
