#include "platform/desktop/session_bus.h"
#include "platform/desktop/wallpaper_styles.h"
#include "platform/desktop/wallpaper_ways.h"
#include "platform/os/paths.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace platform {

namespace {

const QString kXfconf = QStringLiteral("org.xfce.Xfconf");
const QString kChannel = QStringLiteral("xfce4-desktop");
const QString kBackdrops = QStringLiteral("/backdrop");
const QString kStyleName = QStringLiteral("image-style");
const QString kPictureName = QStringLiteral("last-image");
const QString kOldPictureName = QStringLiteral("image-path"); // before there was one a workspace

QDBusMessage xfconfCall(const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.xfce.Xfconf"),
                                                       QStringLiteral("/org/xfce/Xfconf"),
                                                       QStringLiteral("org.xfce.Xfconf"), method);
    call.setArguments(arguments);
    return call;
}

QDBusMessage setCall(const QString& property, const QVariant& value)
{
    return xfconfCall(QStringLiteral("SetProperty"),
                      {kChannel, property, QVariant::fromValue(QDBusVariant(value))});
}

bool isPicture(const QString& property)
{
    const QString name = fileNameOf(property);
    return name == kPictureName || name == kOldPictureName;
}

QStringList picturesAmong(const QDBusMessage& allProperties)
{
    QStringList pictures = qdbus_cast<QVariantMap>(allProperties.arguments().value(0)).keys();
    pictures.removeIf([](const QString& property) { return !isPicture(property); });
    return pictures;
}

// Its own errors say that nothing is stored yet; with any other one nobody is there to store it.
bool isAnswer(const QDBusMessage& answer)
{
    return isGood(answer) || answer.errorName().startsWith(kXfconf);
}

// On a desktop that has its first wallpaper still: what it stores for its screens.
QStringList picturesOfTheScreens()
{
    QStringList pictures;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        pictures.append(
            QStringLiteral("/backdrop/screen0/monitor%1/workspace0/").arg(screen->name()) +
            kPictureName);
    }
    return pictures;
}

QList<QDBusMessage> callsFor(const QString& property, const WallpaperRequest& request)
{
    QList<QDBusMessage> calls = {setCall(property, QString())};
    if (request.style) {
        calls.append(
            setCall(joinPath(folderOf(property), kStyleName), namesOf(*request.style).xfconf));
    }
    calls.append(setCall(property, request.path));
    return calls;
}

} // namespace

bool showOnXfce(const WallpaperRequest& request)
{
    const QDBusMessage all =
        answerOnBus(xfconfCall(QStringLiteral("GetAllProperties"), {kChannel, kBackdrops}));
    if (!isAnswer(all)) {
        return false;
    }
    QStringList pictures = picturesAmong(all);
    if (pictures.isEmpty()) {
        pictures = picturesOfTheScreens();
    }
    QList<QDBusMessage> calls;
    for (const QString& property : pictures) {
        calls += callsFor(property, request);
    }
    const QList<QDBusMessage> answers = answersOnBus(calls);
    return !answers.isEmpty() && isGood(answers.last());
}

} // namespace platform
