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
// itself once the portal has answered, and waits for that longer than whoever asked.
class ScreenshotPortal : public QObject {
    Q_OBJECT

public:
    // Time enough for a person who has a question to answer.
    static constexpr std::chrono::milliseconds kPatience = std::chrono::minutes(1);

    explicit ScreenshotPortal(QObject* owner, std::chrono::milliseconds patience = kPatience);

    // Calls back once, before it returns or later, unless the owner is gone by then; null where
    // nothing came in time. The file that the desktop wrote is gone by then, or as soon as a later
    // answer tells of it. What is neither a PNG nor named like one wasn't written for this and
    // stays.
    void ask(std::function<void(const QImage&)> answer);

private slots:
    void respond(uint outcome, const QVariantMap& results);

private:
    void listenTo(const QString& request);
    void takeReply(const QDBusPendingCallWatcher& call);
    void giveUp();
    void finish(const QImage& picture);
    void callBack(const QImage& picture);

    std::function<void(const QImage&)> m_answer;
    QStringList m_requests; // paths by which the answer may come
    QTimer m_patience;
};

} // namespace platform
