#pragma once

#include <QString>
#include <cstdint>

class QWidget;

namespace core {

// The part of the main window that viewer and pane share.
class WorkArea {
public:
    virtual ~WorkArea() = default;

    // Parent for windows that lie over the main window.
    virtual QWidget* window() = 0;
    // The height that the layout gives the viewer and the pane beside it, in twips.
    [[nodiscard]] virtual int viewerHeightTwips() const = 0;
    // Lays the main window out anew; the pane has changed its width.
    virtual void form1paint() = 0;
    // The folder list Dir2 follows the pane.
    virtual void setDir2(const QString& folder) = 0;
    // How many files were counted in the folder shown.
    [[nodiscard]] virtual std::int16_t pictureCount() const = 0;
};

} // namespace core
