#pragma once

#include <QObject>
#include <QString>

namespace shell {

// A picture of the main window for whoever starts the program with VISTARA_SCREENSHOT=FILE in its
// environment: once the first folder stands there, the window is saved as PNG and the program ends.
// Without the variable it does nothing.
class ScreenshotRequest : public QObject {
public:
    ScreenshotRequest();

private:
    void timerEvent(QTimerEvent* event) override;

    QString m_file;
};

} // namespace shell
