#pragma once

#include "thumbs/thumbnail_properties.h"

namespace thumbs {

// What writing a property does beside storing it.
enum class WriteEffect {
    None,
    FrameColour,    // viewport and sheet take it at once
    PageColour,     // the first page takes it at once
    InfoColours,    // the information bar takes them at once
    InfoVisibility, // shows or hides the bar and lays out anew
    Run,            // at design time only: a run
    HtmlPreview,    // at design time only: the album preview
    Preset,         // stores the preset's colours; at design time a run
    PrintColumns,   // stops a run that is under way
    PrintZoom,      // the same, and previews again
};

// Read and write access to every persisted property but the path. The control that owns them says
// what a write does.
class ThumbnailSettings {
public:
    virtual ~ThumbnailSettings() = default;

    [[nodiscard]] const ThumbnailProperties& properties() const { return m_values; }

    // True after a property was written, until the next save.
    [[nodiscard]] bool propertiesChanged() const { return m_changed; }

    [[nodiscard]] base::Colour ThumbPage_FrameColor() const
    {
        return m_values.ThumbPage_FrameColor;
    }
    void setThumbPage_FrameColor(base::Colour colour);
    [[nodiscard]] base::Colour InfoBackColor() const { return m_values.InfoBackColor; }
    void setInfoBackColor(base::Colour colour);
    [[nodiscard]] base::Colour InfoForeColor() const { return m_values.InfoForeColor; }
    void setInfoForeColor(base::Colour colour);
    [[nodiscard]] bool InfobarVisible() const { return m_values.InfobarVisible; }
    void setInfobarVisible(bool visible);
    [[nodiscard]] std::int32_t Language() const { return m_values.Language; }
    void setLanguage(std::int32_t language);

    [[nodiscard]] std::int32_t ThumbNailSize() const { return m_values.ThumbNailSize; }
    void setThumbNailSize(std::int32_t pixels);
    [[nodiscard]] base::Colour ThumbNailColor() const { return m_values.ThumbNailColor; }
    void setThumbNailColor(base::Colour colour);
    [[nodiscard]] base::Colour ThumbPageColor() const { return m_values.ThumbPageColor; }
    void setThumbPageColor(base::Colour colour);
    [[nodiscard]] base::Colour ThumbNailSelectColor() const
    {
        return m_values.ThumbNailSelectColor;
    }
    void setThumbNailSelectColor(base::Colour colour);
    [[nodiscard]] base::Colour ThumbNailBorderColor() const
    {
        return m_values.ThumbNailBorderColor;
    }
    void setThumbNailBorderColor(base::Colour colour);
    [[nodiscard]] std::int32_t ThumbPageColorPresets() const
    {
        return m_values.ThumbPageColorPresets;
    }
    void setThumbPageColorPresets(std::int32_t preset);
    [[nodiscard]] base::Colour FloodFillColor() const { return m_values.FloodFillColor; }
    void setFloodFillColor(base::Colour colour);
    [[nodiscard]] std::int32_t ThumbnailExtraWidth() const { return m_values.ThumbnailExtraWidth; }
    void setThumbnailExtraWidth(std::int32_t pixels);
    [[nodiscard]] std::int32_t ThumbnailExtraHeight() const
    {
        return m_values.ThumbnailExtraHeight;
    }
    void setThumbnailExtraHeight(std::int32_t pixels);
    [[nodiscard]] std::int32_t MaxThumbnailpages() const { return m_values.MaxThumbnailpages; }
    void setMaxThumbnailpages(std::int32_t pages);
    [[nodiscard]] bool AutoUpdateOnPathchange() const { return m_values.AutoUpdateOnPathchange; }
    void setAutoUpdateOnPathchange(bool update);

    [[nodiscard]] bool CompressToJPG() const { return m_values.CompressToJPG; }
    void setCompressToJPG(bool compress);
    [[nodiscard]] bool Compress_NO_GIF() const { return m_values.Compress_NO_GIF; }
    void setCompress_NO_GIF(bool keep);

    [[nodiscard]] std::int16_t Print_NrThumbCols() const { return m_values.Print_NrThumbCols; }
    void setPrint_NrThumbCols(std::int16_t columns);
    [[nodiscard]] std::int32_t Print_Zoomfactor() const { return m_values.Print_Zoomfactor; }
    void setPrint_Zoomfactor(std::int32_t percent); // 10 to 200; anything else is passed over
    [[nodiscard]] const QVariant& PrintResolution() const { return m_values.PrintResolution; }
    void setPrintResolution(const QVariant& quality);

    [[nodiscard]] std::int32_t Html_ThumbnailBorderThicknes() const
    {
        return m_values.Html_ThumbnailBorderThicknes;
    }
    void setHtml_ThumbnailBorderThicknes(std::int32_t pixels);
    [[nodiscard]] std::int32_t Html_ThumbnailSize() const { return m_values.Html_ThumbnailSize; }
    void setHtml_ThumbnailSize(std::int32_t pixels);
    [[nodiscard]] base::Colour Html_ThumbnailBorderColor() const
    {
        return m_values.Html_ThumbnailBorderColor;
    }
    void setHtml_ThumbnailBorderColor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageBackcolor() const { return m_values.Html_PageBackcolor; }
    void setHtml_PageBackcolor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageForecolor() const { return m_values.Html_PageForecolor; }
    void setHtml_PageForecolor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageLineColor() const { return m_values.Html_PageLineColor; }
    void setHtml_PageLineColor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageLinkColor() const { return m_values.Html_PageLinkColor; }
    void setHtml_PageLinkColor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageLinkHoverForeColor() const
    {
        return m_values.Html_PageLinkHoverForeColor;
    }
    void setHtml_PageLinkHoverForeColor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageLinkHoverBackColor() const
    {
        return m_values.Html_PageLinkHoverBackColor;
    }
    void setHtml_PageLinkHoverBackColor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageFotoframeBackColor() const
    {
        return m_values.Html_PageFotoframeBackColor;
    }
    void setHtml_PageFotoframeBackColor(base::Colour colour);
    [[nodiscard]] base::Colour Html_PageFotoframeBorderColor() const
    {
        return m_values.Html_PageFotoframeBorderColor;
    }
    void setHtml_PageFotoframeBorderColor(base::Colour colour);
    [[nodiscard]] std::int32_t Html_PageFotoLinkstyle() const
    {
        return m_values.Html_PageFotoLinkstyle;
    }
    void setHtml_PageFotoLinkstyle(std::int32_t style);
    [[nodiscard]] std::int32_t Html_PageColorPresets() const
    {
        return m_values.Html_PageColorPresets;
    }
    void setHtml_PageColorPresets(std::int32_t preset);

protected:
    virtual void written(WriteEffect effect) = 0;

    template<typename Value> void write(Value& field, const Value& value, WriteEffect effect)
    {
        field = value;
        m_changed = true;
        written(effect);
    }

    ThumbnailProperties m_values;
    bool m_changed = false;
};

} // namespace thumbs
