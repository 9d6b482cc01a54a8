#pragma once

#include "widgets/strip_window.h"

class cpvPicViewer;

// Takes a picture from a scanner, by way of the clipboard, and gives it to the main viewer. It says
// nothing of failures: what the clipboard holds then is shown.
class Acquire : public widgets::StripWindow {
    Q_OBJECT

public:
    Acquire();

    // What the source answered last; see acquire::PictureSource.
    [[nodiscard]] int lastResult() const { return m_lastResult; }

private:
    void buildControls();
    void chooseSource();
    void acquirePicture();
    void accept();

    cpvPicViewer* m_viewer = nullptr; // a child
    int m_lastResult = 0;
};
