#pragma once

#include "shell/main_window.h"
#include "smoke/sample_pictures.h"
#include "smoke/screen.h"
#include "support/temp_tree.h"

#include <QRect>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>

class QMenu;

namespace native {

// Runs the whole program in this process on the display system that the process was started on,
// with the delivered pictures, the real dialogs and a folder of three pictures. The screen is
// looked at as its user sees it.
class NativeTest : public testing::Test {
protected:
    void SetUp() override;

    // Starts the program. Once the tiles of the first folder stand on the screen the script runs; in
    // picture mode, which has none, as soon as the program is up. Then the main window closes, unless
    // the script has seen to that.
    void run(const std::function<void(Form1&)>& script);

    // Opens a modal window by the first function and works in it by the second. The window is
    // closed where that leaves it open.
    static void inModalWindow(const std::function<void()>& open,
                              const std::function<void(QWidget&)>& work);

    // Where a part of the main window is on the screen. That window ends in the lower right corner.
    static QRect onScreen(const QWidget& part);
    // The middle of what has a colour on the screen within a part, as a place of that part.
    static QPoint placeOf(const QWidget& part, QColor colour);
    static bool tilesAppear(const Form1& form);
    // The tiles are there and change no more: a run, or the desktop's last word on the size, may
    // still be under way when the first of them appear.
    static bool tilesSettle(const Form1& form);

    static QWidget& pictureArea(const Form1& form); // the viewer
    static QWidget& tileArea(const Form1& form);
    static QWidget& part(const QWidget& window, const char* name);

    // Wait until the display system has put a window up, and until a popup menu stands open.
    static bool isUp(const QWidget& window);
    static bool opens(const QMenu& menu);

    static void openByPath(const Form1& form, const QString& path);
    [[nodiscard]] QString stored(const char* key) const; // of config.ini

    support::TempTree tree{{{"pics/"}}};
    std::map<QString, QString> settings; // for config.ini
};

} // namespace native
