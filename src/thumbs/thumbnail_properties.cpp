#include "thumbs/thumbnail_properties.h"

#include "base/numbers.h"
#include "thumbs/colour_presets.h"

#include <array>
#include <optional>
#include <type_traits>

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

// Colours are kept as the signed numbers that settings hold.
QVariant toVariant(const QString& value)
{
    return value;
}
QVariant toVariant(bool value)
{
    return value;
}
QVariant toVariant(std::int16_t value)
{
    return static_cast<int>(value);
}
QVariant toVariant(std::int32_t value)
{
    return value;
}
QVariant toVariant(base::Colour value)
{
    return static_cast<std::int32_t>(value);
}
QVariant toVariant(const QVariant& value)
{
    return value;
}

std::optional<std::int64_t> wholeNumber(const QVariant& value)
{
    bool isNumber = false;
    const qlonglong number = value.toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

void assign(const QVariant& value, QString& field)
{
    field = value.toString();
}
void assign(const QVariant& value, QVariant& field)
{
    field = value;
}

void assign(const QVariant& value, bool& field)
{
    field = base::toBoolean(value.toString().toStdString()).value_or(field);
}

template<typename Number> void assign(const QVariant& value, Number& field)
{
    const std::optional<std::int64_t> number = wholeNumber(value);
    if (!number) {
        return;
    }
    if constexpr (std::is_same_v<Number, std::int16_t>) {
        field = base::narrow16(*number).value_or(field);
    } else if (const std::optional<std::int32_t> narrow = base::narrow32(*number)) {
        field = static_cast<Number>(*narrow);
    }
}

} // namespace

std::span<const PropertyRow> propertyRows()
{
    return kRows;
}

void PropertyBag::write(const QString& name, const QVariant& value, const QVariant& fallback)
{
    if (value == fallback) {
        m_values.erase(name);
    } else {
        m_values[name] = value;
    }
}

QVariant PropertyBag::read(const QString& name, const QVariant& fallback) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? fallback : found->second;
}

void writeProperties(const ThumbnailProperties& properties, PropertyBag& bag)
{
    const ThumbnailProperties fresh;
    for (const PropertyRow& row : kRows) {
        std::visit(
            [&](auto field) {
                bag.write(row.name, toVariant(properties.*field), toVariant(fresh.*field));
            },
            row.field);
    }
}

ThumbnailProperties readProperties(const PropertyBag& bag)
{
    ThumbnailProperties properties;
    for (const PropertyRow& row : kRows) {
        std::visit(
            [&](auto field) {
                const QVariant value = bag.read(row.name, toVariant(properties.*field));
                const std::optional<std::int64_t> number = wholeNumber(value);
                if (!row.sixteenBits || (number && base::narrow16(*number))) {
                    assign(value, properties.*field);
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
