#include "widgets/button_geometry.h"

#include <algorithm>

namespace widgets {

namespace {

constexpr int kSideGap = 4;
constexpr int kStackGap = 2;
constexpr int kMargin = 4;

enum class Corners { Square, OneOff, TwoOff, Oval };

Corners cornersOf(int type)
{
    switch (type) {
    case 1:
    case 5:
    case 14:
        return Corners::OneOff;
    case 3:
    case 4:
        return Corners::TwoOff;
    case 13:
        return Corners::Oval;
    default:
        return Corners::Square;
    }
}

QRegion withoutCorners(QSize button, QSize corner)
{
    const int right = button.width() - corner.width();
    const int bottom = button.height() - corner.height();
    QRegion region(QRect(QPoint(0, 0), button));
    for (const QPoint place :
         {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
        region -= QRect(place, corner);
    }
    return region;
}

QRect centred(QSize size, QSize button)
{
    return {QPoint((button.width() - size.width()) / 2, (button.height() - size.height()) / 2),
            size};
}

ButtonLayout sideBySide(QSize button, QSize caption, QSize picture, bool pictureFirst)
{
    const int total = caption.width() + kSideGap + picture.width();
    ButtonLayout layout{centred(caption, button), centred(picture, button)};
    const int left = (button.width() - total) / 2;
    if (pictureFirst) {
        layout.picture.moveLeft(left);
        layout.caption.moveLeft(left + picture.width() + kSideGap);
    } else {
        layout.caption.moveLeft(left);
        layout.picture.moveLeft(left + caption.width() + kSideGap);
    }
    return layout;
}

ButtonLayout stacked(QSize button, QSize caption, QSize picture, bool pictureFirst)
{
    const int total = caption.height() + kStackGap + picture.height();
    ButtonLayout layout{centred(caption, button), centred(picture, button)};
    const int top = (button.height() - total) / 2;
    if (pictureFirst) {
        layout.picture.moveTop(top);
        layout.caption.moveTop(top + picture.height() + kStackGap);
    } else {
        layout.caption.moveTop(top);
        layout.picture.moveTop(top + caption.height() + kStackGap);
    }
    return layout;
}

} // namespace

ButtonLayout layOutButton(QSize button, QSize caption, QSize picture, PicturePlace place)
{
    if (caption.isEmpty() || picture.isEmpty() || place == PicturePlace::Behind) {
        return {caption.isEmpty() ? QRect() : centred(caption, button),
                picture.isEmpty() ? QRect() : centred(picture, button)};
    }
    if (place == PicturePlace::Left || place == PicturePlace::Right) {
        return sideBySide(button, caption, picture, place == PicturePlace::Left);
    }
    return stacked(button, caption, picture, place == PicturePlace::Above);
}

int captionRoom(QSize button, QSize picture, PicturePlace place)
{
    const bool isBeside = place == PicturePlace::Left || place == PicturePlace::Right;
    const int taken = isBeside && !picture.isEmpty() ? picture.width() + kSideGap : 0;
    return std::max(1, button.width() - 2 * kMargin - taken);
}

QRegion shapeRegion(int type, QSize button)
{
    const QRect whole(QPoint(0, 0), button);
    switch (cornersOf(type)) {
    case Corners::OneOff:
        return withoutCorners(button, {1, 1});
    case Corners::TwoOff:
        return withoutCorners(button, {2, 1}) & withoutCorners(button, {1, 2});
    case Corners::Oval:
        return QRegion(whole.adjusted(-1, -1, 1, 1), QRegion::Ellipse) & whole;
    case Corners::Square:
        break;
    }
    return whole;
}

bool shapeContains(int type, QSize button, QPoint point)
{
    if (cornersOf(type) != Corners::Oval) {
        return shapeRegion(type, button).contains(point);
    }
    if (button.isEmpty()) {
        return false;
    }
    // The middle of the pixel, measured in half axes from the middle of the oval.
    const double across = (2.0 * point.x() + 1.0) / button.width() - 1.0;
    const double down = (2.0 * point.y() + 1.0) / button.height() - 1.0;
    return across * across + down * down <= 1.0;
}

QChar accessKeyOf(const QString& caption)
{
    for (qsizetype at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != u'&') {
            continue;
        }
        if (caption[at + 1] != u'&') {
            return caption[at + 1];
        }
        ++at;
    }
    return {};
}

} // namespace widgets
