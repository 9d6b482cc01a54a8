#pragma once

#include "smoke/desktop_session.h"
#include "smoke/screen.h"
#include "smoke/window_parts.h"
#include "support/temp_tree.h"

#include <QColor>
#include <QSize>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace smoke {

inline const QColor kRed{200, 40, 40};   // a.jpg
inline const QColor kGreen{40, 160, 60}; // b.jpg
inline const QColor kBlue{30, 60, 220};  // c.pcx
inline constexpr QSize kJpegSize{400, 300};
inline constexpr QSize kPcxSize{64, 32};

// A folder with three pictures, and the program's own folder with settings that start there, in
// browse mode, showing pictures in their own size.
class SmokeTest : public testing::Test {
protected:
    void SetUp() override;

    // Types a path into the field and presses Return.
    static void openByPath(const DesktopSession& session, const QString& path);
    // Waits for the tiles of all three pictures.
    [[nodiscard]] static bool tilesAppear(const WindowParts& parts);
    [[nodiscard]] QString stored(const char* key) const; // of config.ini

    std::map<std::string, std::string> settings; // for config.ini
    void writeSettings() const;

    support::TempTree tree{{{"pics/"}}};
};

} // namespace smoke
