#pragma once

#include "base/colours.h"
#include "platform/pictures/picture.h"

namespace core {

// The control that shows a picture, as commands and windows below or beside it use it.
class Viewer {
public:
    virtual ~Viewer() = default;

    // The picture as it was handed in. Setting Nothing empties the viewer.
    [[nodiscard]] virtual platform::Picture Picture() const = 0;
    virtual void setPicture(const platform::Picture& picture) = 0;
    // True once a picture was set, an empty one too.
    [[nodiscard]] virtual bool PictureExists() const = 0;
    [[nodiscard]] virtual int PictureWidth() const = 0; // pixels, 0 without a picture
    [[nodiscard]] virtual int PictureHeight() const = 0;
    // Shows nothing any more; Picture() stays.
    virtual void Clear() = 0;
    virtual void Refresh() = 0;
    // The colour around the picture.
    [[nodiscard]] virtual base::Colour BackColor() const = 0;
    virtual void setBackColor(base::Colour colour) = 0;
    virtual void PanViewRefresh() = 0;
    virtual void PanViewHide() = 0;
    [[nodiscard]] virtual int ZoomFactor() const = 0; // whole factors, from 1
    virtual void setZoomFactor(int factor) = 0;
    virtual void ZoomIn() = 0;
    virtual void ZoomOut() = 0;
    virtual void ZoomReal() = 0;
    virtual void giveFocus() = 0;
};

} // namespace core
