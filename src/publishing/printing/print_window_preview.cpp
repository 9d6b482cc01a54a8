#include "publishing/printing/print_window_preview.h"

#include "platform/pictures/transfers.h"

#include <QPainter>

namespace printing {

namespace {

constexpr QSize kRoom(400, 420); // pixels
constexpr int kRim = 6;          // around the page
constexpr float kEdgeShare = 0.4F;

} // namespace

class PagePane::Page : public QWidget {
public:
    explicit Page(PagePane* pane)
        : QWidget(pane)
    {
    }

    void take(const platform::Picture& picture)
    {
        m_picture = picture;
        update();
    }
    [[nodiscard]] QSize pixels() const { return {m_picture.width(), m_picture.height()}; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        if (m_picture.isNothing()) {
            return;
        }
        QPainter painter(this);
        platform::StretchBlt(painter, {0, 0, width(), height()}, m_picture.image(),
                             {0, 0, m_picture.width(), m_picture.height()});
    }

private:
    platform::Picture m_picture;
};

PagePane::PagePane(QWidget* parent)
    : QWidget(parent)
    , m_page(new Page(this))
{
    setMinimumSize(kRoom);
    m_page->setObjectName("picPreview");
    m_page->setAccessibleName("Preview of the page");
}

void PagePane::setPage(const platform::Picture& page)
{
    m_page->take(page);
    placePage();
    update();
}

void PagePane::resizeEvent(QResizeEvent* /*event*/)
{
    placePage();
}

// An edge around the page, which may have the colour of the window.
void PagePane::paintEvent(QPaintEvent* /*event*/)
{
    if (m_page->pixels().isEmpty()) {
        return;
    }
    QPainter painter(this);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(kEdgeShare);
    painter.setPen(edge);
    painter.drawRect(m_page->geometry().adjusted(-1, -1, 0, 0));
}

// A page that is blank keeps its place.
void PagePane::placePage()
{
    if (m_page->pixels().isEmpty()) {
        return;
    }
    const QRect room = rect().adjusted(kRim, kRim, -kRim, -kRim);
    const QSize size = m_page->pixels().scaled(room.size(), Qt::KeepAspectRatio);
    QRect place(QPoint(0, 0), size.expandedTo({1, 1}));
    place.moveCenter(room.center());
    m_page->setGeometry(place);
}

} // namespace printing
