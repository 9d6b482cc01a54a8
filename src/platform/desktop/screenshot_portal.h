#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>
#include <chrono>
#include <functional>

class QDBusPendingCallWatcher;

namespace platform {

// One picture of the screen from the desktop's portal, which may ask the user first. It deletes
// itself once it has answered.
class ScreenshotPortal : public QObject {
    Q_OBJECT

public:
    // Time enough for a person who has a question to answer.
    static constexpr std::chrono::milliseconds kPatience = std::chrono::minutes(1);

    explicit ScreenshotPortal(QObject* owner, std::chrono::milliseconds patience = kPatience);

    // Calls back once, before it returns or later; null where nothing came. The file that the
    // desktop wrote is gone by then.
    void ask(std::function<void(const QImage&)> answer);

private slots:
    void respond(uint outcome, const QVariantMap& results);

private:
    void listenTo(const QString& request);
    void takeReply(const QDBusPendingCallWatcher& call);
    void giveUp();
    void finish(const QImage& picture);

    std::function<void(const QImage&)> m_answer;
    QStringList m_requests; // paths by which the answer may come
    QTimer m_patience;
};

} // namespace platform
