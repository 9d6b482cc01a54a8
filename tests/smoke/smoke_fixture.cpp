#include "smoke/smoke_fixture.h"

#include "platform/os/profile.h"

namespace smoke {

namespace {

constexpr const char* kSection = "QUILLPOST";

} // namespace

void SmokeTest::SetUp()
{
    addSamplePictures(tree);
    tree.setVariable("QT_QPA_PLATFORM", "xcb");
    // No bus, and nothing that starts one.
    tree.setVariable("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    settings = {{"BestFit", "0"},           {"ObcBrowse", "1"},
                {"Panview", "1"},           {"Scrollshow", "0"},
                {"fastZoomshow", "1"},      {"InterfaceB", "True"},
                {"BrowserColor", "1"},      {"BrowserSize", "60"},
                {"EditorColor", "3158064"}, {"SpeciFolder", tree.native("pics")}};
    writeSettings();
}

void SmokeTest::writeSettings() const
{
    std::string text = std::string("[") + kSection + "]\n";
    for (const auto& [key, value] : settings) {
        text += key + "=" + value + "\n";
    }
    tree.add({"app/config.ini", text});
}

void SmokeTest::openByPath(const DesktopSession& session, const QString& path)
{
    const WindowParts parts(session.inside());
    session.click(parts.field().center());
    session.key(QStringLiteral("ctrl+a"));
    session.type(path);
    session.key(QStringLiteral("Return"));
}

bool SmokeTest::tilesAppear(const WindowParts& parts)
{
    return waitUntil([&parts] {
        const QImage shot = screen();
        for (const QColor& colour : {kRed, kGreen, kBlue}) {
            if (boundsOf(shot, parts.tiles(), colour).isNull()) {
                return false;
            }
        }
        return true;
    });
}

QString SmokeTest::stored(const char* key) const
{
    return platform::readProfile(tree.path("app/config.ini"), QLatin1String(kSection),
                                 QLatin1String(key), QStringLiteral("ERROR"));
}

} // namespace smoke
