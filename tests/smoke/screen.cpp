#include "smoke/screen.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>

namespace smoke {

namespace {

constexpr int kPatience = 60000; // milliseconds
constexpr int kGlance = 50;
constexpr int kSettled = 3500; // longer than three steps of the fastest slide show
constexpr int kSameColour = 8; // a channel, for what JPEG makes of a plain colour

QRect inkOf(const QImage& image, QRgb background)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != background) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

// The text as the program draws it, cut to its ink.
QImage drawn(const QString& text, Ink ink)
{
    const bool label = ink == Ink::Label;
    const QFontMetrics metrics(QApplication::font());
    QImage image(metrics.horizontalAdvance(text) + 8, metrics.height() + 4, QImage::Format_RGB32);
    const QPalette palette = QApplication::palette();
    const QColor background = palette.color(label ? QPalette::Window : QPalette::Base);
    image.fill(background);
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    painter.setPen(palette.color(label ? QPalette::WindowText : QPalette::Text));
    painter.drawText(4, 2 + metrics.ascent(), text);
    painter.end();
    return image.copy(inkOf(image, background.rgb()));
}

bool matchesAt(const QImage& shot, const QImage& pattern, QPoint place)
{
    for (int y = 0; y < pattern.height(); ++y) {
        for (int x = 0; x < pattern.width(); ++x) {
            if (shot.pixel(place.x() + x, place.y() + y) != pattern.pixel(x, y)) {
                return false;
            }
        }
    }
    return true;
}

// Wayland lets no program look at the screen but the compositor's own.
QImage shotByWeston()
{
    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_PICTURES_DIR"), folder.path());
    QProcess shooter;
    shooter.setProcessEnvironment(environment);
    shooter.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    shooter.start(QStringLiteral("weston-screenshooter"), QStringList());
    shooter.waitForFinished(kPatience);
    const QStringList shots = QDir(folder.path()).entryList({QStringLiteral("*.png")});
    return shots.isEmpty()
               ? QImage()
               : QImage(folder.filePath(shots.first())).convertToFormat(QImage::Format_RGB32);
}

QImage shotBySway()
{
    QProcess shooter;
    shooter.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    shooter.start(QStringLiteral("grim"),
                  {QStringLiteral("-t"), QStringLiteral("ppm"), QStringLiteral("-")});
    shooter.waitForFinished(kPatience);
    return QImage::fromData(shooter.readAllStandardOutput(), "PPM")
        .convertToFormat(QImage::Format_RGB32);
}

QImage shotOfCompositor()
{
    return qEnvironmentVariableIsSet("SWAYSOCK") ? shotBySway() : shotByWeston();
}

} // namespace

QImage screen()
{
    QScreen* const whole = QGuiApplication::primaryScreen();
    const bool wayland = QGuiApplication::platformName() == QLatin1String("wayland");
    const QImage shot = wayland
                            ? shotOfCompositor()
                            : whole->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
    return shot.scaled(shot.size() / whole->devicePixelRatio());
}

bool waitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > kPatience) {
            return false;
        }
        QApplication::processEvents();
        QThread::msleep(kGlance);
    }
    return true;
}

bool isNear(QRgb pixel, QColor colour)
{
    return std::abs(qRed(pixel) - colour.red()) < kSameColour &&
           std::abs(qGreen(pixel) - colour.green()) < kSameColour &&
           std::abs(qBlue(pixel) - colour.blue()) < kSameColour;
}

QRect boundsOf(const QImage& shot, const QRect& part, QColor colour)
{
    const QRect inside = part & shot.rect();
    QRect bounds;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (isNear(shot.pixel(x, y), colour)) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

bool showsText(const QImage& shot, const QRect& part, const QString& text, Ink ink)
{
    const QImage pattern = drawn(text, ink);
    const QRect inside = part & shot.rect();
    for (int y = inside.top(); y + pattern.height() <= inside.bottom() + 1; ++y) {
        for (int x = inside.left(); x + pattern.width() <= inside.right() + 1; ++x) {
            if (matchesAt(shot, pattern, {x, y})) {
                return true;
            }
        }
    }
    return false;
}

bool textAppears(const QRect& part, const QString& text, Ink ink)
{
    return waitUntil([&] { return showsText(screen(), part, text, ink); });
}

bool colourAppears(const QRect& part, QColor colour, QSize size)
{
    return waitUntil([&] { return boundsOf(screen(), part, colour).size() == size; });
}

bool colourStays(const QRect& part, QColor colour, QSize size)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < kSettled) {
        if (boundsOf(screen(), part, colour).size() != size) {
            return false;
        }
        QThread::msleep(kGlance);
    }
    return true;
}

} // namespace smoke
