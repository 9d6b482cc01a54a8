#pragma once

#include "widgets/strip_window.h"

class QLabel;
class QSlider;

// The small window that sets the viewer's zoom. It finds the viewer and the status bar through the
// main window of core::services().
class fastZoom : public widgets::StripWindow {
    Q_OBJECT

public:
    fastZoom();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeParts();
    void readZoom();
    void applyZoom(int factor);

    QLabel* lblZoom2 = nullptr; // children
    QSlider* scrZoom2 = nullptr;
};
