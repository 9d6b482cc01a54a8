#include "thumbs/thumbnail_settings.h"

namespace thumbs {

namespace {

constexpr std::int32_t kSmallestZoom = 10;
constexpr std::int32_t kLargestZoom = 200;

} // namespace

void ThumbnailSettings::setThumbPage_FrameColor(base::Colour colour)
{
    write(m_values.ThumbPage_FrameColor, colour, WriteEffect::FrameColour);
}

void ThumbnailSettings::setInfoBackColor(base::Colour colour)
{
    write(m_values.InfoBackColor, colour, WriteEffect::InfoColours);
}

void ThumbnailSettings::setInfoForeColor(base::Colour colour)
{
    write(m_values.InfoForeColor, colour, WriteEffect::InfoColours);
}

void ThumbnailSettings::setInfobarVisible(bool visible)
{
    write(m_values.InfobarVisible, visible, WriteEffect::InfoVisibility);
}

void ThumbnailSettings::setLanguage(std::int32_t language)
{
    write(m_values.Language, language, WriteEffect::None);
}

void ThumbnailSettings::setThumbNailSize(std::int32_t pixels)
{
    write(m_values.ThumbNailSize, pixels, WriteEffect::Run);
}

void ThumbnailSettings::setThumbNailColor(base::Colour colour)
{
    write(m_values.ThumbNailColor, colour, WriteEffect::Run);
}

void ThumbnailSettings::setThumbPageColor(base::Colour colour)
{
    write(m_values.ThumbPageColor, colour, WriteEffect::PageColour);
}

void ThumbnailSettings::setThumbNailSelectColor(base::Colour colour)
{
    write(m_values.ThumbNailSelectColor, colour, WriteEffect::Run);
}

void ThumbnailSettings::setThumbNailBorderColor(base::Colour colour)
{
    write(m_values.ThumbNailBorderColor, colour, WriteEffect::Run);
}

void ThumbnailSettings::setThumbPageColorPresets(std::int32_t preset)
{
    write(m_values.ThumbPageColorPresets, preset, WriteEffect::Preset);
}

void ThumbnailSettings::setFloodFillColor(base::Colour colour)
{
    write(m_values.FloodFillColor, colour, WriteEffect::Run);
}

void ThumbnailSettings::setThumbnailExtraWidth(std::int32_t pixels)
{
    write(m_values.ThumbnailExtraWidth, pixels, WriteEffect::Run);
}

void ThumbnailSettings::setThumbnailExtraHeight(std::int32_t pixels)
{
    write(m_values.ThumbnailExtraHeight, pixels, WriteEffect::Run);
}

void ThumbnailSettings::setMaxThumbnailpages(std::int32_t pages)
{
    write(m_values.MaxThumbnailpages, pages, WriteEffect::None);
}

void ThumbnailSettings::setAutoUpdateOnPathchange(bool update)
{
    write(m_values.AutoUpdateOnPathchange, update, WriteEffect::None);
}

void ThumbnailSettings::setCompressToJPG(bool compress)
{
    write(m_values.CompressToJPG, compress, WriteEffect::None);
}

void ThumbnailSettings::setCompress_NO_GIF(bool keep)
{
    write(m_values.Compress_NO_GIF, keep, WriteEffect::None);
}

void ThumbnailSettings::setPrint_NrThumbCols(std::int16_t columns)
{
    write(m_values.Print_NrThumbCols, columns, WriteEffect::PrintColumns);
}

void ThumbnailSettings::setPrint_Zoomfactor(std::int32_t percent)
{
    if (percent < kSmallestZoom || percent > kLargestZoom) {
        return;
    }
    write(m_values.Print_Zoomfactor, percent, WriteEffect::PrintZoom);
}

void ThumbnailSettings::setPrintResolution(const QVariant& quality)
{
    write(m_values.PrintResolution, quality, WriteEffect::None);
}

void ThumbnailSettings::setHtml_ThumbnailBorderThicknes(std::int32_t pixels)
{
    write(m_values.Html_ThumbnailBorderThicknes, pixels, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_ThumbnailSize(std::int32_t pixels)
{
    write(m_values.Html_ThumbnailSize, pixels, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_ThumbnailBorderColor(base::Colour colour)
{
    write(m_values.Html_ThumbnailBorderColor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageBackcolor(base::Colour colour)
{
    write(m_values.Html_PageBackcolor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageForecolor(base::Colour colour)
{
    write(m_values.Html_PageForecolor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageLineColor(base::Colour colour)
{
    write(m_values.Html_PageLineColor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageLinkColor(base::Colour colour)
{
    write(m_values.Html_PageLinkColor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageLinkHoverForeColor(base::Colour colour)
{
    write(m_values.Html_PageLinkHoverForeColor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageLinkHoverBackColor(base::Colour colour)
{
    write(m_values.Html_PageLinkHoverBackColor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageFotoframeBackColor(base::Colour colour)
{
    write(m_values.Html_PageFotoframeBackColor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageFotoframeBorderColor(base::Colour colour)
{
    write(m_values.Html_PageFotoframeBorderColor, colour, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageFotoLinkstyle(std::int32_t style)
{
    write(m_values.Html_PageFotoLinkstyle, style, WriteEffect::HtmlPreview);
}

void ThumbnailSettings::setHtml_PageColorPresets(std::int32_t preset)
{
    write(m_values.Html_PageColorPresets, preset, WriteEffect::HtmlPreview);
}

} // namespace thumbs
