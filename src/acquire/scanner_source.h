#pragma once

#include "acquire/picture_source.h"
#include "acquire/scan_settings.h"

#include <map>
#include <string>

namespace acquire {

// The system's scanners. The one chosen last is remembered for the user, what it was set to for the
// run of the program.
class ScannerSource : public PictureSource {
public:
    int selectImageSource(QWidget* window) override;
    int acquireToClipboard(QWidget* window, std::int16_t pixelTypes) override;

private:
    std::map<std::string, ScanSettings> m_settings; // by scanner
};

} // namespace acquire
