#pragma once

#include "base/colours.h"
#include "core/property_bag.h"

#include <QString>
#include <QVariant>
#include <cstdint>
#include <span>
#include <variant>

namespace thumbs {

// The persisted properties of the thumbnail control, with the values of a fresh one.
struct ThumbnailProperties {
    QString Path;
    base::Colour ThumbPage_FrameColor = 0x404040;
    base::Colour InfoBackColor = 0x000000;
    base::Colour InfoForeColor = 0x008080;
    bool InfobarVisible = true;
    std::int32_t Language = 1;
    bool CompressToJPG = true;
    bool Compress_NO_GIF = true;
    std::int16_t Print_NrThumbCols = 5;
    std::int32_t Print_Zoomfactor = 100;
    QVariant PrintResolution = 200;
    std::int32_t ThumbNailSize = 60; // pixels of the picture square
    base::Colour ThumbNailColor = 0x808080;
    base::Colour ThumbPageColor = 0x000000;
    base::Colour ThumbNailSelectColor = 0x00FF00;
    base::Colour ThumbNailBorderColor = 0x000000;
    std::int32_t ThumbPageColorPresets = 0;
    std::int32_t Html_ThumbnailBorderThicknes = 0;
    std::int32_t Html_ThumbnailSize = 200;
    base::Colour Html_ThumbnailBorderColor = 0x808080;
    base::Colour Html_PageBackcolor = 0x353535;
    base::Colour Html_PageForecolor = 0x808080;
    base::Colour Html_PageLineColor = 0x330099;
    base::Colour Html_PageLinkColor = 0xC0C0C0;
    base::Colour Html_PageLinkHoverForeColor = 0xFFFFFF;
    base::Colour Html_PageLinkHoverBackColor = 0x330099;
    base::Colour Html_PageFotoframeBackColor = 0x575757;
    base::Colour Html_PageFotoframeBorderColor = 0x808080;
    std::int32_t Html_PageFotoLinkstyle = 0;
    std::int32_t Html_PageColorPresets = 0;
    bool AutoUpdateOnPathchange = false; // setting the path starts a run
    base::Colour FloodFillColor = 0x0000FF;
    std::int32_t MaxThumbnailpages = 100;
    std::int32_t ThumbnailExtraWidth = 0;
    std::int32_t ThumbnailExtraHeight = 0;
};

// One row for each property, in the order in which they are read back.
struct PropertyRow {
    using P = ThumbnailProperties;

    const char* name;
    std::variant<QString P::*, base::Colour P::*, bool P::*, std::int16_t P::*, std::int32_t P::*,
                 QVariant P::*>
        field;
    bool sixteenBits = false; // read back as a 16-bit number whatever the field holds
};

[[nodiscard]] std::span<const PropertyRow> propertyRows();

void writeProperties(const ThumbnailProperties& properties, core::PropertyBag& bag);

// Missing values, and values that don't fit their property, read as the default.
[[nodiscard]] ThumbnailProperties readProperties(const core::PropertyBag& bag);

// Sets the five colours of a preset; false, and nothing set, for a number that is none.
bool applyPreset(ThumbnailProperties& properties, std::int32_t preset);

} // namespace thumbs
