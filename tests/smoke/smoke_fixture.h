#pragma once

#include "smoke/desktop_session.h"
#include "smoke/sample_pictures.h"
#include "smoke/screen.h"
#include "smoke/window_parts.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace smoke {

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
