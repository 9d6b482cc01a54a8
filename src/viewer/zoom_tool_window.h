#pragma once

#include <QWidget>

class QLabel;
class QSlider;

namespace widgets {
class TitleStrip;
}

// The small window that sets the viewer's zoom. It finds the viewer and the status bar through the
// main window of core::services().
class fastZoom : public QWidget {
    Q_OBJECT

public:
    // The owner is the window that it stays above.
    explicit fastZoom(QWidget* owner = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeParts();
    void readZoom();
    void applyZoom(int factor);
    void closeByBox();

    widgets::TitleStrip* Picture2 = nullptr; // children
    QLabel* lblZoom2 = nullptr;
    QSlider* scrZoom2 = nullptr;
};
