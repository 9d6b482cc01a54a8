// Stands where a desktop's panel watches for notification icons: takes the place on the session
// bus, writes a line when it has it, then the bus name of each icon that registers, and goes with
// its standard input.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QSocketNotifier>
#include <cstdio>
#include <unistd.h>

class StandInWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ version)

public:
    [[nodiscard]] bool hasHost() const { return true; }
    [[nodiscard]] int version() const { return 0; }

public slots:
    void RegisterStatusNotifierItem(const QString& service) { tell(service); }

public:
    static void tell(const QString& line)
    {
        std::printf("%s\n", qPrintable(line));
        std::fflush(stdout);
    }
};

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    StandInWatcher watcher;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    if (!bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"))) {
        return 1;
    }
    StandInWatcher::tell(QStringLiteral("watching"));
    QSocketNotifier end(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&end, &QSocketNotifier::activated, &QCoreApplication::quit);
    return QCoreApplication::exec();
}

#include "stand_in_watcher.moc"
