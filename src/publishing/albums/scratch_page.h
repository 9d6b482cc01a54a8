#pragma once

#include "platform/pictures/picture_box.h"

#include <QWidget>

namespace albums {

// The page that the thumbnails of an album are made on, in the middle of the pages of its list, so
// that the user sees each of them. It stands out of sight until the first one.
class ScratchPage : public QWidget {
    Q_OBJECT

public:
    ScratchPage(QWidget* viewport, base::Colour border);

    // Draws a picture at that size with a border of so many pixels around it, and shows it at once.
    void draw(const platform::Picture& picture, QSize size, int border);
    // What was drawn, one pixel for each of the screen's units; Nothing for a size without pixels.
    [[nodiscard]] platform::Picture page() const { return m_page; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const base::Colour m_border;
    platform::Picture m_page;
};

} // namespace albums
