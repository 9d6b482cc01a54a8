#pragma once

#include "thumbs/thumbnail_properties.h"

#include <QImage>
#include <QRect>
#include <QString>

class QPainter;

// How an album would look: a mock master page and a mock detail page in the page colours.
namespace thumbs {

inline const QString kPreviewNavigation = QStringLiteral(" vorige [ index ] volgende  ");

// Where the parts of a page of the size given stand, in pixels of the page.
struct MasterPageParts {
    QRect title;
    QRect line;
    QRect thumbnails[2]; // the boxes around the pictures
    QRect links[2];      // the first one as under the pointer
    QRect texts[2];
};
[[nodiscard]] MasterPageParts masterPageParts(QSize page, const ThumbnailProperties& look);

struct DetailPageParts {
    QRect navigation;
    QRect line;
    QRect frame; // around the photo
    QRect picture;
};
[[nodiscard]] DetailPageParts detailPageParts(QSize page, QSize sample);

void drawMasterPage(QPainter& painter, QSize page, const ThumbnailProperties& look,
                    const QImage& sample);
void drawDetailPage(QPainter& painter, QSize page, const ThumbnailProperties& look,
                    const QImage& sample);

} // namespace thumbs
