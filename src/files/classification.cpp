#include "files/classification.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace files {

namespace {

using namespace std::string_view_literals;

constexpr std::array kOwnFormats{"pcx"sv, "psd"sv, "tga"sv, "tif"sv, "lbm"sv, "bbm"sv};

// "vod" here and "vob" below: a vob typed into the field goes straight to the picture loader, a vod
// takes the way through the routing to the same end.
constexpr std::array kPlayerBound{"did"sv, "avi"sv, "rlf"sv, "icl"sv,  "jif"sv, "mp3"sv,
                                  "asf"sv, "vod"sv, "htm"sv, "html"sv, "swf"sv};

struct RoutedExtension {
    std::string_view extension;
    Route route;
};

constexpr std::array kRoutes{
    RoutedExtension{"swf", Route::Flash},  RoutedExtension{"avi", Route::Media},
    RoutedExtension{"mpeg", Route::Media}, RoutedExtension{"asf", Route::Media},
    RoutedExtension{"dat", Route::Media},  RoutedExtension{"vob", Route::Media},
    RoutedExtension{"mp3", Route::Media},  RoutedExtension{"htm", Route::Web},
    RoutedExtension{"html", Route::Web},   RoutedExtension{"hta", Route::Web},
};

bool equals(const QString& text, std::string_view latin)
{
    return text == QLatin1StringView(latin.data(), static_cast<qsizetype>(latin.size()));
}

template<typename List> bool contains(const List& list, const QString& extension)
{
    return std::ranges::any_of(list,
                               [&](std::string_view entry) { return equals(extension, entry); });
}

} // namespace

QString extensionOf(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('.')) + 1).toLower();
}

bool isOwnFormat(const QString& path)
{
    return contains(kOwnFormats, extensionOf(path));
}

bool isPlayerBound(const QString& path)
{
    return contains(kPlayerBound, extensionOf(path));
}

Route routeOf(const QString& path)
{
    const QString extension = extensionOf(path);
    for (const RoutedExtension& entry : kRoutes) {
        if (equals(extension, entry.extension)) {
            return entry.route;
        }
    }
    return Route::Viewer;
}

} // namespace files
