#pragma once

#include "platform/desktop/desktop.h"

namespace platform {

// The desktop that the program runs on.
class QtDesktop : public Desktop {
public:
    int bitsPerPixel() const override;
    bool maximise(QWidget& window) override;
    bool openDocument(const QString& pathOrUrl) override;
    bool startProgram(const QString& path, const QStringList& arguments) override;
    void showProperties(const QString& path, QWidget* parent) override;
    bool moveToTrash(const QString& path) override;
    bool setWallpaper(const QString& path, std::optional<WallpaperStyle> style) override;
};

} // namespace platform
