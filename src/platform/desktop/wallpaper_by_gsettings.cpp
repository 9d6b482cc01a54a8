#include "platform/desktop/desktop_program.h"
#include "platform/desktop/wallpaper_styles.h"
#include "platform/desktop/wallpaper_ways.h"
#include "platform/os/file_url.h"

namespace platform {

namespace {

struct Background {
    QString schema;
    QStringList addressKeys; // for a light look and a dark one
    bool holdsPath;          // a plain path, otherwise an address
};

const QString kStyleKey = QStringLiteral("picture-options");

const Background kGnome{QStringLiteral("org.gnome.desktop.background"),
                        {QStringLiteral("picture-uri"), QStringLiteral("picture-uri-dark")},
                        false};
const Background kMate{
    QStringLiteral("org.mate.background"), {QStringLiteral("picture-filename")}, true};
const Background kCinnamon{
    QStringLiteral("org.cinnamon.desktop.background"), {QStringLiteral("picture-uri")}, false};

// As the command line takes a text.
QString quoted(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
    return u'\'' + text + u'\'';
}

// The keys of one schema, until the program that sets them is out of reach.
class Settings {
public:
    explicit Settings(QString schema)
        : m_schema(std::move(schema))
    {
    }

    // A key that this version of the desktop doesn't have is refused.
    bool set(const QString& key, const QString& value)
    {
        if (m_reachable) {
            const DesktopProgram end = runDesktopProgram(
                QStringLiteral("gsettings"), {QStringLiteral("set"), m_schema, key, quoted(value)});
            m_reachable = end != DesktopProgram::Missing;
            return end == DesktopProgram::Done;
        }
        return false;
    }

    bool setAny(const QStringList& keys, const QString& value)
    {
        bool any = false;
        for (const QString& key : keys) {
            any = set(key, value) || any;
        }
        return any;
    }

private:
    QString m_schema;
    bool m_reachable = true;
};

QString addressFor(const Background& background, const QString& path)
{
    return background.holdsPath ? path : fileAddress(path);
}

bool showOn(const Background& background, const WallpaperRequest& request)
{
    Settings settings(background.schema);
    settings.setAny(background.addressKeys, {});
    if (request.style) {
        settings.set(kStyleKey, QLatin1String(namesOf(*request.style).gsettings));
    }
    return settings.setAny(background.addressKeys, addressFor(background, request.path));
}

} // namespace

bool showOnGnome(const WallpaperRequest& request)
{
    return showOn(kGnome, request);
}

bool showOnMate(const WallpaperRequest& request)
{
    return showOn(kMate, request);
}

bool showOnCinnamon(const WallpaperRequest& request)
{
    return showOn(kCinnamon, request);
}

} // namespace platform
