#include "files/classification.h"

#include <gtest/gtest.h>

using files::Route;

namespace {

struct Case {
    const char* path;
    bool own;
    bool playerBound;
    Route route;
};

constexpr Case kCases[] = {
    {"/p/a.pcx", true, false, Route::Viewer},
    {"/p/a.psd", true, false, Route::Viewer},
    {"/p/A.PSD", true, false, Route::Viewer},
    {"/p/a.tga", true, false, Route::Viewer},
    {"/p/a.TGA", true, false, Route::Viewer},
    {"/p/a.tif", true, false, Route::Viewer},
    {"/p/a.lbm", true, false, Route::Viewer},
    {"/p/a.bbm", true, false, Route::Viewer},
    {"/p/a.b.psd", true, false, Route::Viewer},
    {"/p/a.iff", false, false, Route::Viewer},
    {"/p/a.tiff", false, false, Route::Viewer},
    {"/p/a.bmp", false, false, Route::Viewer},
    {"/p/a.jpg", false, false, Route::Viewer},
    {"/p/a.JPEG", false, false, Route::Viewer},
    {"/p/a.gif", false, false, Route::Viewer},
    {"/p/a.ico", false, false, Route::Viewer},
    {"/p/a.wmf", false, false, Route::Viewer},
    {"/p/a.emf", false, false, Route::Viewer},
    {"/p/a.png", false, false, Route::Viewer},
    {"/p/a.txt", false, false, Route::Viewer},
    {"/p/a.swf", false, true, Route::Flash},
    {"/p/a.SWF", false, true, Route::Flash},
    {"/p/a.avi", false, true, Route::Media},
    {"/p/a.mp3", false, true, Route::Media},
    {"/p/a.asf", false, true, Route::Media},
    {"/p/a.htm", false, true, Route::Web},
    {"/p/a.html", false, true, Route::Web},
    // Bound for the routing, which has no place for them.
    {"/p/a.vod", false, true, Route::Viewer},
    {"/p/a.did", false, true, Route::Viewer},
    {"/p/a.rlf", false, true, Route::Viewer},
    {"/p/a.icl", false, true, Route::Viewer},
    {"/p/a.jif", false, true, Route::Viewer},
    // Known to the routing, but never sent there by the field.
    {"/p/a.vob", false, false, Route::Media},
    {"/p/a.mpeg", false, false, Route::Media},
    {"/p/a.dat", false, false, Route::Media},
    {"/p/a.hta", false, false, Route::Web},
    // No extension, or one that lies in a folder's name.
    {"/p/psd", false, false, Route::Viewer},
    {"/p.psd/name", false, false, Route::Viewer},
    {"/p/a.", false, false, Route::Viewer},
    {"/p/a.psd ", false, false, Route::Viewer},
    {"", false, false, Route::Viewer},
};

} // namespace

TEST(Classification, GoesByTheExtensionAlone)
{
    for (const Case& test : kCases) {
        const QString path = QString::fromLatin1(test.path);
        EXPECT_EQ(files::isOwnFormat(path), test.own) << test.path;
        EXPECT_EQ(files::isPlayerBound(path), test.playerBound) << test.path;
        EXPECT_EQ(files::routeOf(path), test.route) << test.path;
    }
}

TEST(Classification, TakesTheWholePathWhereThereIsNoDot)
{
    EXPECT_EQ(files::extensionOf(QStringLiteral("/Some/Name")), QStringLiteral("/some/name"));
    EXPECT_EQ(files::extensionOf(QStringLiteral("/a.b/Name")), QStringLiteral("b/name"));
    EXPECT_EQ(files::extensionOf(QStringLiteral("x.PSD")), QStringLiteral("psd"));
    EXPECT_EQ(files::extensionOf(QStringLiteral("a.b.gif")), QStringLiteral("gif"));
    EXPECT_EQ(files::extensionOf(QStringLiteral("a.")), QString());
}
