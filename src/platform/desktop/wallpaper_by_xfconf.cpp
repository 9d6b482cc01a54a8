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

const QString kXfconf = QStringLiteral("org.xfce.Xfconf"); // service, interface and its errors
const QString kChannel = QStringLiteral("xfce4-desktop");
const QString kBackdrops = QStringLiteral("/backdrop");
const QString kStyleName = QStringLiteral("image-style");
const QString kPictureName = QStringLiteral("last-image");
const QString kOldPictureName = QStringLiteral("image-path"); // before there was one a workspace

QDBusMessage xfconfCall(const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kXfconf, QStringLiteral("/org/xfce/Xfconf"),
                                                       kXfconf, method);
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

// The pictures stored, by their properties.
QVariantMap picturesAmong(const QDBusMessage& allProperties)
{
    QVariantMap pictures = qdbus_cast<QVariantMap>(allProperties.arguments().value(0));
    pictures.removeIf([](const auto& property) { return !isPicture(property.key()); });
    return pictures;
}

// Its own errors say that nothing is stored yet; with any other one nobody is there to store it.
bool isAnswer(const QDBusMessage& answer)
{
    return isGood(answer) || answer.errorName().startsWith(kXfconf);
}

bool hasAnyIn(const QString& folder, const QVariantMap& properties)
{
    const auto first = properties.lowerBound(folder);
    return first != properties.cend() && first.key().startsWith(folder);
}

// A screen that has the desktop's first wallpaper still has nothing stored: what will be.
void addNewScreens(QVariantMap& pictures)
{
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QString monitor = QStringLiteral("/backdrop/screen0/monitor%1/").arg(screen->name());
        if (!hasAnyIn(monitor, pictures)) {
            pictures.insert(monitor + QStringLiteral("workspace0/") + kPictureName, QString());
        }
    }
}

// The service tells of a value when it has nothing else to do, and of the last one alone. So each
// picture in the same file gets another spelling of its path than the one before.
QString otherThan(const QString& current, const QString& path)
{
    return current == path ? joinPath(folderOf(path), QStringLiteral("./") + fileNameOf(path))
                           : path;
}

QList<QDBusMessage> callsFor(const QString& property, const QString& current,
                             const WallpaperRequest& request)
{
    QList<QDBusMessage> calls;
    if (request.style) {
        calls.append(
            setCall(joinPath(folderOf(property), kStyleName), namesOf(*request.style).xfconf));
    }
    calls.append(setCall(property, otherThan(current, request.path)));
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
    QVariantMap pictures = picturesAmong(all);
    addNewScreens(pictures);
    QList<QDBusMessage> calls;
    for (auto picture = pictures.cbegin(); picture != pictures.cend(); ++picture) {
        calls += callsFor(picture.key(), picture.value().toString(), request);
    }
    const QList<QDBusMessage> answers = answersOnBus(calls);
    return !answers.isEmpty() && isGood(answers.last());
}

} // namespace platform
