#pragma once

#include "platform/desktop/desktop.h"

#include <QRect>
#include <vector>

namespace support {

// A desktop for tests: records what it is asked for and does nothing of it. It is in place while it
// lives.
class FakeDesktop : public platform::Desktop {
public:
    struct Start {
        QString path;
        QStringList arguments;
        bool operator==(const Start&) const = default;
    };

    struct Wallpaper {
        QString path;
        std::optional<platform::WallpaperStyle> style;
        bool operator==(const Wallpaper&) const = default;
    };

    // What the desktop is.
    int bits = 32;
    QRect area = QRect(0, 0, 1024, 768);
    bool succeeds = true;        // what everything that answers does
    bool removesTrashed = false; // whether trashing a file takes it away

    // What it was asked for, in order.
    QStringList opened;
    std::vector<Start> started;
    QStringList shownProperties;
    QStringList trashed;
    std::vector<Wallpaper> wallpapers;

    int bitsPerPixel() const override { return bits; }
    bool maximise(QWidget& window) override;
    bool openDocument(const QString& pathOrUrl) override;
    bool startProgram(const QString& path, const QStringList& arguments) override;
    void showProperties(const QString& path, QWidget* parent) override;
    bool moveToTrash(const QString& path) override;
    bool setWallpaper(const QString& path, std::optional<platform::WallpaperStyle> style) override;

private:
    platform::ScopedDesktop m_inPlace{*this};
};

} // namespace support
