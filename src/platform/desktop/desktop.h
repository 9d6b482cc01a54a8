#pragma once

#include "platform/desktop/wallpaper.h"

#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

namespace platform {

// What the program asks of the desktop around it.
class Desktop {
public:
    virtual ~Desktop() = default;

    // Colour depth of the screen.
    [[nodiscard]] virtual int bitsPerPixel() const = 0;

    // Asks for a window, visible or not, to be maximised. False: the desktop answers later, by a
    // state and a size, and may refuse. Without a window manager nobody answers, so the window
    // takes the screen's area without panels at once.
    virtual bool maximise(QWidget& window) = 0;

    // Opens a document or an address with the program that the user prefers for it.
    virtual bool openDocument(const QString& pathOrUrl) = 0;

    // Starts a program detached; false when there is none at the path.
    virtual bool startProgram(const QString& path, const QStringList& arguments) = 0;

    // A sheet with the facts of a file; nothing for one that doesn't exist.
    virtual void showProperties(const QString& path, QWidget* parent) = 0;

    // Moves a file or folder to the trash, without a question. False: it stays where it is.
    virtual bool moveToTrash(const QString& path) = 0;

    // Shows a picture file behind all windows; without a style in the one that the desktop has.
    // False: the desktop shows what it did, or doesn't say that it has changed.
    virtual bool setWallpaper(const QString& path, std::optional<WallpaperStyle> style) = 0;
};

// The real desktop, or the one that a test put in its place.
[[nodiscard]] Desktop& desktop();

class ScopedDesktop {
public:
    explicit ScopedDesktop(Desktop& replacement);
    ~ScopedDesktop();
    ScopedDesktop(const ScopedDesktop&) = delete;
    ScopedDesktop& operator=(const ScopedDesktop&) = delete;

private:
    Desktop* m_previous;
};

} // namespace platform
