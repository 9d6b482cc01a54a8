#pragma once

#include "widgets/strip_window.h"

class QLabel;
class QSlider;

namespace viewer {

// The text of the zoom's panel for a factor, which the zoom tool reads back: 2 reads "      200%".
[[nodiscard]] QString zoomReadout(int zoomFactor);

} // namespace viewer

// The small window that sets the viewer's zoom. It finds the viewer and the status bar through
// core::services(), and lies on the main window as a child: as a window of its own it would keep
// the keys from the main window on desktops that give them to the last window of a group.
class fastZoom : public widgets::StripWindow {
    Q_OBJECT

public:
    fastZoom();

    void setVisible(bool visible) override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeParts();
    void followFocus(const QWidget* before, const QWidget* now);
    void readZoom();
    void applyZoom(int factor);

    QLabel* lblZoom2 = nullptr; // children
    QSlider* scrZoom2 = nullptr;
};
