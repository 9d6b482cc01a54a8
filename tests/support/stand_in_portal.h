#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <chrono>
#include <functional>

namespace support {

// The desktop's portal as far as screenshots go, on the session bus of this process under a
// connection of its own. It is there while it lives.
class StandInPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Screenshot")

public:
    enum class Answer { Once, Twice, Never, No, UnderAnotherPath };

    // Screenshots are written to the folder.
    explicit StandInPortal(QString folder);
    ~StandInPortal() override;

    Answer answer = Answer::Once;
    std::chrono::milliseconds delay{0};
    QImage picture;                 // what it takes
    std::function<QImage()> camera; // takes it, where there is one
    QString uri;                    // what it tells instead of the file that it wrote
    QVariantMap options;            // that it was last asked with
    QStringList files;              // that it wrote

public slots:
    QDBusObjectPath Screenshot(const QString& parentWindow, const QVariantMap& asked,
                               const QDBusMessage& message);

private:
    void respond(const QString& request);
    [[nodiscard]] QString writtenUri();

    QString m_folder;
    QDBusConnection m_bus;
};

} // namespace support
