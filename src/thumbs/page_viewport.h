#pragma once

#include "thumbs/page_sheet.h"

#include <QWidget>

namespace thumbs {

// The window on the sheet of pages: paints the part that is in sight and tells presses by page.
class PageViewport : public QWidget {
    Q_OBJECT

public:
    PageViewport(const PageSheet& sheet, QWidget* parent);

    // Where the sheet stands in the viewport, in pixels. A new top shows other pages and paints
    // nothing anew on them.
    [[nodiscard]] QPoint sheetPosition() const { return m_sheetPosition; }
    void setSheetTop(int top);
    void setSheetLeft(int left);

    // Where a tile stands in the viewport, or beyond its edges.
    [[nodiscard]] QRect tilePlace(int page, const TileBox& box) const;

    // Shows what changed on a page.
    void updateTile(int page, const TileBox& box);

signals:
    // The place is in pixels of the page. Every button presses.
    void pagePressed(int page, QPoint place);
    void pageDoubleClicked(int page);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QRect sheetRect() const;
    [[nodiscard]] QRect shownPage(int page) const; // cut to the sheet, in viewport pixels
    [[nodiscard]] int pageAt(QPoint position) const;
    void paintPage(QPainter& painter, int page, const QRect& part) const;

    const PageSheet& m_sheet;
    QPoint m_sheetPosition;
};

} // namespace thumbs
