#include "publishing/albums/album_folders.h"

#include "support/temp_tree.h"

using albums::albumFolders;
using albums::AlbumFolders;

TEST(AlbumFolders, LieBelowTheRootAsTheFolderLiesBelowHome)
{
    const support::TempTree tree;
    const AlbumFolders folders = albumFolders(tree.path("home"), tree.path("home/My Pics"));
    EXPECT_EQ(folders.web, tree.path("home/Web"));
    EXPECT_EQ(folders.album, tree.path("home/Web/My Pics"));
    EXPECT_EQ(folders.originals, tree.path("home/Web/My Pics/OriginalPics"));
}

TEST(AlbumFolders, LieInTheProgramsFolderWithoutARoot)
{
    const support::TempTree tree;
    EXPECT_EQ(albumFolders({}, tree.path("home/a/b")).album, tree.path("app/Web/a/b"));
}

TEST(AlbumFolders, KeepTheWholePathOfAFolderWithoutADrive)
{
    const support::TempTree tree;
    const AlbumFolders folders = albumFolders({}, QStringLiteral("/no such drive/pics"));
    EXPECT_EQ(folders.album, tree.path("app/Web/no such drive/pics"));
}

TEST(AlbumFolders, AreTheOnesOfAllAlbumsForTheDriveItself)
{
    const support::TempTree tree;
    const QString web = tree.path("home/Web");
    EXPECT_EQ(albumFolders(tree.path("home"), tree.path("home")).album, web);
    EXPECT_EQ(albumFolders(tree.path("home") + "/", tree.path("home") + "/").album, web);
    EXPECT_EQ(albumFolders({}, QStringLiteral("/")).album, tree.path("app/Web"));
}

TEST(AlbumFolders, KeepNamesThatFilesOfAlbumsMayNotHave)
{
    const support::TempTree tree;
    const QString odd = tree.path("home/a+b = 100%/\xC3\x89t\xC3\xA9");
    EXPECT_EQ(albumFolders({}, odd).album, tree.path("app/Web/a+b = 100%/\xC3\x89t\xC3\xA9"));
}
