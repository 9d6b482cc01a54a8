#include "widgets/button_face.h"

#include "widgets/button_surface.h"
#include "widgets/colour_conversion.h"
#include "widgets/masked_picture.h"

#include <QFontMetrics>
#include <QPainter>
#include <optional>

namespace widgets {

namespace {

constexpr int kTallestCaption = 10000;
constexpr int kFocusInset = 4;
constexpr int kHardShadow = -40;
constexpr int kSoftShadow = -128;
constexpr int kCaptionFlags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;

enum class CaptionMode { Normal = 0, Over = 1, Pressed = 2, Disabled = 3 };

CaptionMode captionMode(const ButtonFace& face)
{
    if (face.state == ButtonState::Pressed) {
        return CaptionMode::Pressed;
    }
    if (face.state == ButtonState::Disabled) {
        return CaptionMode::Disabled;
    }
    return face.isOver ? CaptionMode::Over : CaptionMode::Normal;
}

ButtonLayout layoutOf(const ButtonFace& face)
{
    const QSize picture = face.picture.size();
    const int room = captionRoom(face.size, picture, face.picturePlace);
    ButtonLayout layout = layOutButton(face.size, captionSize(face.caption, face.font, room),
                                       picture, face.picturePlace);
    if (captionMode(face) == CaptionMode::Pressed) {
        layout.caption.translate(1, 1);
        layout.picture.translate(1, 1);
    }
    return layout;
}

void drawText(QPainter& painter, const QRect& place, const ButtonFace& face, base::Colour colour)
{
    painter.setPen(toQColor(colour));
    painter.drawText(place, kCaptionFlags, face.caption);
}

void drawCaption(QPainter& painter, const ButtonFace& face, const QRect& place)
{
    if (face.caption.isEmpty()) {
        return;
    }
    const ButtonPalette& palette = face.palette;
    painter.setFont(face.font);
    switch (captionMode(face)) {
    case CaptionMode::Disabled: {
        const bool isDark = face.type == kRoundedFrameType;
        drawText(painter, place.translated(1, 1), face,
                 isDark ? palette.DarkShadow : palette.White);
        drawText(painter, place, face, palette.Shadow);
        break;
    }
    case CaptionMode::Over:
        drawText(painter, place, face, palette.TextOver);
        break;
    case CaptionMode::Normal:
    case CaptionMode::Pressed:
        drawText(painter, place, face, palette.Text);
        break;
    }
}

void drawPictures(QPainter& painter, const ButtonFace& face, QRect place)
{
    if (face.picture.isNull()) {
        return;
    }
    const QImage source = face.picture.forRatio(painter.device()->devicePixelRatioF());
    const auto mask = face.usesMask ? std::optional<base::Colour>(face.palette.Mask) : std::nullopt;
    const bool isLifted =
        face.type == kLiftingType && face.isOver && face.state == ButtonState::Normal;
    const bool hasShadow = face.specialEffect == 1 || face.specialEffect == 2;
    if (isLifted) {
        place.translate(-1, -1);
    }
    if (hasShadow || (isLifted && face.specialEffect == 0)) {
        const bool isSoft = face.specialEffect == 2;
        const base::Colour dark =
            face.palette.shifted(face.palette.Face, isSoft ? kSoftShadow : kHardShadow);
        const int reach = isLifted ? 2 : 1;
        painter.drawImage(place.translated(reach, reach),
                          silhouette(source, mask, dark, isSoft ? Shade::Soft : Shade::Full));
    }
    const bool isGrey =
        face.state == ButtonState::Disabled || (face.isGreyUntilOver && !face.isOver);
    painter.drawImage(place, maskedPicture(source, mask, isGrey ? Tint::Grey : Tint::Colours));
}

void drawFocusBox(const ButtonSurface& surface, const ButtonFace& face, const QRect& caption)
{
    if (!face.showsFocusBox) {
        return;
    }
    // A button without caption shows the focus along its edge.
    const QRect place = caption.isEmpty()
                            ? QRect(QPoint(0, 0), face.size)
                                  .adjusted(kFocusInset, kFocusInset, -kFocusInset, -kFocusInset)
                            : caption;
    surface.DrawDottedBox(place.x(), place.y(), place.width(), place.height(), face.palette.Text);
}

} // namespace

QSize captionSize(const QString& caption, const QFont& font, int room)
{
    if (caption.isEmpty()) {
        return {0, 0};
    }
    return QFontMetrics(font)
        .boundingRect(QRect(0, 0, room, kTallestCaption), Qt::TextWordWrap | Qt::TextShowMnemonic,
                      caption)
        .size();
}

void paintButton(QPainter& painter, const ButtonFace& original)
{
    ButtonFace face = original;
    if (face.paintsFaceOver) {
        face.palette = face.palette.withFaceOver();
    }
    painter.save();
    painter.setClipRegion(shapeRegion(face.type, face.size), Qt::IntersectClip);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);

    const ButtonSurface surface(painter, face.size);
    // An oval leaves its corners to what lies behind it, and paints its own face.
    if (face.type != kTransparentType && face.type != kOvalType) {
        surface.FillBox(0, 0, face.size.width(), face.size.height(), face.palette.Face);
    }
    drawButtonFrame(face.type, {face.palette, face.state, face.isOver, face.isChosen}, surface);

    const ButtonLayout layout = layoutOf(face);
    drawPictures(painter, face, layout.picture);
    drawCaption(painter, face, layout.caption);
    drawFocusBox(surface, face, layout.caption);
    painter.restore();
}

} // namespace widgets
