#include "viewer/picture_viewer.h"

#include "viewer/pan_view_window.h"
#include "widgets/focus_ring.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <limits>

namespace {

constexpr int kLargestZoomIndex = 14;
constexpr int kLeastBarsWidth = 13;

int to16Bits(int length)
{
    return length > std::numeric_limits<qint16>::max() ? 0 : length;
}

} // namespace

cpvPicViewer::cpvPicViewer(QWidget* parent)
    : QWidget(parent)
{
    setObjectName("cpvPicViewer");
    setAccessibleName("Picture");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    makeParts();
}

cpvPicViewer::~cpvPicViewer()
{
    PanViewUnload();
}

void cpvPicViewer::makeParts()
{
    m_iDst = new QWidget(this);
    m_iDst->setObjectName("iDst");
    m_iDst->setAttribute(Qt::WA_OpaquePaintEvent);
    m_iDst->setMouseTracking(true);
    m_iDst->installEventFilter(this);
    m_corner = new QWidget(this);
    m_corner->setObjectName("corner");
    m_corner->setAutoFillBackground(true);
    m_hSB.widget = new QScrollBar(Qt::Horizontal, this);
    m_hSB.widget->setObjectName("hSB");
    m_hSB.widget->setAccessibleName("Scroll sideways");
    m_vSB.widget = new QScrollBar(Qt::Vertical, this);
    m_vSB.widget->setObjectName("vSB");
    m_vSB.widget->setAccessibleName("Scroll up and down");
    for (Bar* bar : {&m_hSB, &m_vSB}) {
        bar->widget->setFocusPolicy(Qt::NoFocus);
        bar->widget->setContextMenuPolicy(Qt::PreventContextMenu);
        bar->widget->setRange(0, 0);
        bar->widget->installEventFilter(this);
        connect(bar->widget, &QScrollBar::valueChanged, this,
                [this, bar](int value) { barChanged(*bar, value); });
    }
    m_focusRing = new widgets::FocusRing(*this);
    hideParts();
}

void cpvPicViewer::setHost(QWidget* host)
{
    if (m_host != nullptr) {
        m_host->removeEventFilter(this);
    }
    m_host = host;
    if (host != nullptr) {
        host->installEventFilter(this);
    }
}

void cpvPicViewer::setAppearance(int appearance)
{
    m_appearance = appearance;
    update();
    layoutPass();
}

void cpvPicViewer::setBackColor(base::Colour colour)
{
    m_backColor = colour;
    update();
    m_iDst->update();
}

void cpvPicViewer::setBarsWidth(int width)
{
    m_barsWidth = std::max(width, kLeastBarsWidth);
    layoutPass();
}

void cpvPicViewer::setBestFitMode(bool bestFit)
{
    m_bestFit = bestFit;
    m_fitted.clear();
    layoutPass();
}

void cpvPicViewer::setBorderStyle(int style)
{
    m_borderStyle = style;
    update();
    layoutPass();
}

void cpvPicViewer::setMouseScrolling(bool scrolls)
{
    m_mouseScrolling = scrolls;
    useCustomPointer(scrolls && (m_layout.hMaximum > 0 || m_layout.vMaximum > 0));
}

void cpvPicViewer::setScrollBars(int mode)
{
    m_barMode = static_cast<viewer::BarMode>(mode);
    layoutPass();
}

void cpvPicViewer::setPicture(const platform::Picture& picture)
{
    m_pictureExists = true;
    endPanDrag();
    m_hSB.widget->hide();
    m_vSB.widget->hide();
    if (picture.isNothing()) {
        m_iSrc = picture;
        Clear();
        return;
    }
    bool taken = false;
    m_dib.CreateFromStdPicture(picture, taken);
    if (taken) {
        m_iSrc = picture;
        m_fitted.clear();
    }
    const QPointer<cpvPicViewer> self(this); // the layout may open a message
    layoutPass();
    if (self != nullptr) {
        drawPanView();
    }
}

int cpvPicViewer::PictureWidth() const
{
    return to16Bits(m_dib.Width());
}

int cpvPicViewer::PictureHeight() const
{
    return to16Bits(m_dib.Height());
}

void cpvPicViewer::Clear()
{
    m_dib.Destroy();
    m_fitted.clear();
    endPanDrag();
    useCustomPointer(false);
    hideParts();
    drawPanView();
}

void cpvPicViewer::Refresh()
{
    repaintPicture();
}

int cpvPicViewer::ZoomFactor() const
{
    return m_zoomIndex + 1;
}

void cpvPicViewer::setZoomFactor(int factor)
{
    setZoomIndex(std::clamp(factor, 1, kLargestZoomIndex + 1) - 1);
}

void cpvPicViewer::ZoomIn()
{
    if (m_zoomIndex < kLargestZoomIndex) {
        setZoomIndex(m_zoomIndex + 1);
    }
}

void cpvPicViewer::ZoomOut()
{
    if (m_zoomIndex > 0) {
        setZoomIndex(m_zoomIndex - 1);
    }
}

void cpvPicViewer::ZoomReal()
{
    if (m_dib.hDIB()) {
        setZoomIndex(0);
    }
}

void cpvPicViewer::setZoomIndex(int index)
{
    m_zoomIndex = index;
    const QPointer<cpvPicViewer> self(this); // the layout may open a message
    layoutPass();
    if (self != nullptr) {
        emit Zoom();
    }
}

void cpvPicViewer::Go(int position)
{
    // Where each position stands: in halves of the bars' maxima.
    struct Place {
        int horizontal;
        int vertical;
    };
    static constexpr Place kPlaces[] = {{1, 0}, {1, 2}, {0, 1}, {2, 1}, {1, 1},
                                        {0, 0}, {2, 0}, {0, 2}, {2, 2}};
    if (!m_dib.hDIB()) {
        return;
    }
    if (position >= 0 && position < static_cast<int>(std::size(kPlaces))) {
        const QScopedValueRollback changing(m_changing, true);
        setBar(m_hSB, viewer::valueAtHalves(m_layout.hMaximum, kPlaces[position].horizontal));
        setBar(m_vSB, viewer::valueAtHalves(m_layout.vMaximum, kPlaces[position].vertical));
    }
    repaintPicture();
}

void cpvPicViewer::Scroll(int direction, int amount)
{
    const int step = viewer::scrollStep(amount, zoom());
    Bar& bar = direction < 2 ? m_vSB : m_hSB;
    const int value = bar.widget->value();
    switch (direction) {
    case 0:
    case 2:
        return setBar(bar, viewer::scrolledToStart(value, step));
    case 1:
    case 3:
        return setBar(bar, viewer::scrolledToEnd(value, step, bar.widget->maximum()));
    default:
        return;
    }
}

void cpvPicViewer::ScrollLoop(int direction, int amount)
{
    const int step = viewer::scrollStep(amount, zoom());
    Bar& bar = direction < 2 ? m_vSB : m_hSB;
    const int value = bar.widget->value();
    const int maximum = bar.widget->maximum();
    switch (direction) {
    case 0:
    case 2:
        return setBar(bar, viewer::loopedToStart(value, step, maximum));
    case 1:
    case 3:
        return setBar(bar, viewer::loopedToEnd(value, step, maximum));
    default:
        return;
    }
}

int cpvPicViewer::CenterX() const
{
    return viewer::centrePixel(clientArea().width(), m_dib.Width(), zoom(), m_hSB.widget->value());
}

int cpvPicViewer::CenterY() const
{
    return viewer::centrePixel(clientArea().height(), m_dib.Height(), zoom(),
                               m_vSB.widget->value());
}

void cpvPicViewer::CenterXY(int x, int y)
{
    {
        const QScopedValueRollback changing(m_changing, true);
        const QSize control = clientArea().size();
        setBar(m_hSB, viewer::valueForCentre(x, control.width(), zoom(), m_layout.hMaximum));
        setBar(m_vSB, viewer::valueForCentre(y, control.height(), zoom(), m_layout.vMaximum));
    }
    repaintPicture();
}

int cpvPicViewer::CurrentLeft() const
{
    return m_hSB.widget->value() / zoom();
}

int cpvPicViewer::CurrentTop() const
{
    return m_vSB.widget->value() / zoom();
}

int cpvPicViewer::CurrentWidth() const
{
    return m_layout.iDst.width() / zoom();
}

int cpvPicViewer::CurrentHeight() const
{
    return m_layout.iDst.height() / zoom();
}

void cpvPicViewer::giveFocus()
{
    setFocus(Qt::OtherFocusReason);
}
