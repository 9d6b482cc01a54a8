#include "publishing/albums/scratch_page.h"

#include "platform/desktop/screen_flush.h"
#include "thumbs/picture_fit.h"

#include <QPainter>

namespace albums {

namespace {

constexpr QRect kOutOfSight(-200, -100, 1, 1);

} // namespace

ScratchPage::ScratchPage(QWidget* viewport, base::Colour border)
    : QWidget(viewport)
    , m_border(border)
{
    setObjectName("ThumbPage_album");
    setAccessibleName("Picture of the album");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(kOutOfSight);
    show();
}

void ScratchPage::draw(const platform::Picture& picture, QSize size, int border)
{
    platform::PictureBox box;
    box.setBackColor(m_border);
    m_page = {};
    const QSize whole = size + QSize(2 * border, 2 * border);
    if (box.resize(whole.width(), whole.height())) {
        const QPointF corner = thumbs::pictureOffset(whole, size);
        box.paintPicture(picture, corner.x(), corner.y(), size.width(), size.height());
        m_page = box.drawnImage();
    }
    const QPointF place = thumbs::pictureOffset(parentWidget()->size(), whole);
    setGeometry({place.toPoint(), whole});
    repaint();
    platform::flushScreen();
}

void ScratchPage::paintEvent(QPaintEvent* /*event*/)
{
    if (!m_page.isNothing()) {
        QPainter(this).drawImage(rect(), m_page.image());
    }
}

} // namespace albums
