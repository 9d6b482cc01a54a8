#include "thumbs/thumbnail_properties.h"

#include "base/numbers.h"
#include "thumbs/colour_presets.h"

#include <array>
#include <optional>

namespace thumbs {

namespace {

using P = ThumbnailProperties;

const std::array kRows{
    PropertyRow{"Path", &P::Path},
    PropertyRow{"ThumbPage_FrameColor", &P::ThumbPage_FrameColor},
    PropertyRow{"InfoBackColor", &P::InfoBackColor},
    PropertyRow{"InfoForeColor", &P::InfoForeColor},
    PropertyRow{"InfobarVisible", &P::InfobarVisible},
    PropertyRow{"Language", &P::Language, true},
    PropertyRow{"CompressToJPG", &P::CompressToJPG},
    PropertyRow{"Compress_NO_GIF", &P::Compress_NO_GIF},
    PropertyRow{"Print_NrThumbCols", &P::Print_NrThumbCols},
    PropertyRow{"Print_Zoomfactor", &P::Print_Zoomfactor},
    PropertyRow{"PrintResolution", &P::PrintResolution},
    PropertyRow{"ThumbNailSize", &P::ThumbNailSize},
    PropertyRow{"ThumbNailColor", &P::ThumbNailColor},
    PropertyRow{"ThumbPageColor", &P::ThumbPageColor},
    PropertyRow{"ThumbNailSelectColor", &P::ThumbNailSelectColor},
    PropertyRow{"ThumbNailBorderColor", &P::ThumbNailBorderColor},
    PropertyRow{"ThumbPageColorPresets", &P::ThumbPageColorPresets},
    PropertyRow{"Html_ThumbnailBorderThicknes", &P::Html_ThumbnailBorderThicknes},
    PropertyRow{"Html_ThumbnailSize", &P::Html_ThumbnailSize},
    PropertyRow{"Html_ThumbnailBorderColor", &P::Html_ThumbnailBorderColor},
    PropertyRow{"Html_PageBackcolor", &P::Html_PageBackcolor},
    PropertyRow{"Html_PageForecolor", &P::Html_PageForecolor},
    PropertyRow{"Html_PageLineColor", &P::Html_PageLineColor},
    PropertyRow{"Html_PageLinkColor", &P::Html_PageLinkColor},
    PropertyRow{"Html_PageLinkHoverForeColor", &P::Html_PageLinkHoverForeColor},
    PropertyRow{"Html_PageLinkHoverBackColor", &P::Html_PageLinkHoverBackColor},
    PropertyRow{"Html_PageFotoframeBackColor", &P::Html_PageFotoframeBackColor},
    PropertyRow{"Html_PageFotoframeBorderColor", &P::Html_PageFotoframeBorderColor},
    PropertyRow{"Html_PageFotoLinkstyle", &P::Html_PageFotoLinkstyle},
    PropertyRow{"Html_PageColorPresets", &P::Html_PageColorPresets},
    PropertyRow{"AutoUpdateOnPathchange", &P::AutoUpdateOnPathchange},
    PropertyRow{"FloodFillColor", &P::FloodFillColor},
    PropertyRow{"MaxThumbnailpages", &P::MaxThumbnailpages},
    PropertyRow{"ThumbnailExtraWidth", &P::ThumbnailExtraWidth},
    PropertyRow{"ThumbnailExtraHeight", &P::ThumbnailExtraHeight},
};

} // namespace

std::span<const PropertyRow> propertyRows()
{
    return kRows;
}

void writeProperties(const ThumbnailProperties& properties, core::PropertyBag& bag)
{
    const ThumbnailProperties fresh;
    for (const PropertyRow& row : kRows) {
        std::visit(
            [&](auto field) {
                bag.write(row.name, core::kept(properties.*field), core::kept(fresh.*field));
            },
            row.field);
    }
}

ThumbnailProperties readProperties(const core::PropertyBag& bag)
{
    ThumbnailProperties properties;
    for (const PropertyRow& row : kRows) {
        std::visit(
            [&](auto field) {
                const QVariant value = bag.read(row.name, core::kept(properties.*field));
                const std::optional<std::int64_t> number = core::wholeNumber(value);
                if (!row.sixteenBits || (number && base::narrow16(*number))) {
                    core::assign(value, properties.*field);
                }
            },
            row.field);
    }
    return properties;
}

bool applyPreset(ThumbnailProperties& properties, std::int32_t preset)
{
    const ColourPreset* colours = colourPreset(preset);
    if (colours == nullptr) {
        return false;
    }
    properties.ThumbPage_FrameColor = colours->frame;
    properties.ThumbPageColor = colours->page;
    properties.ThumbNailColor = colours->tile;
    properties.ThumbNailBorderColor = colours->border;
    properties.ThumbNailSelectColor = colours->select;
    return true;
}

} // namespace thumbs
