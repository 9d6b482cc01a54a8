#include "viewer/picture_viewer.h"

#include "platform/desktop/dialogs.h"
#include "widgets/colour_conversion.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QtMath>
#include <qdrawutil.h>

namespace {

constexpr int kStretchMode = 3;

const QString kZoomTitle = QStringLiteral("Zoom");
const QString kUnableToZoom = QStringLiteral("Unable to zoom %1%");

} // namespace

int cpvPicViewer::borderWidth() const
{
    if (m_borderStyle == 0) {
        return 0;
    }
    return m_appearance == 0 ? 1 : 2;
}

QRect cpvPicViewer::clientArea() const
{
    const int border = borderWidth();
    return rect().adjusted(border, border, -border, -border);
}

void cpvPicViewer::layoutPass()
{
    if (!m_dib.hDIB() || m_reporting) {
        return;
    }
    if (viewer::exceedsZoomLimit(dibSize(), zoom())) {
        refuseZoom();
        return;
    }
    const QSize control = clientArea().size();
    if (const auto enlarged = viewer::enlargedControl(control, m_barsWidth)) {
        // The resize brings the next pass.
        resize(*enlarged + size() - control);
        return;
    }
    viewer::LayoutRequest request;
    request.control = control;
    request.picture = dibSize();
    request.zoom = zoom();
    request.barsWidth = m_barsWidth;
    request.barMode = m_barMode;
    request.bestFit = m_bestFit;
    request.barsVisible = {!m_hSB.widget->isHidden(), !m_vSB.widget->isHidden()};
    request.cornerVisible = !m_corner->isHidden();
    applyLayout(viewer::layoutViewer(request));
    useCustomPointer(m_mouseScrolling && (m_layout.need.horizontal || m_layout.need.vertical));
    m_iDst->show();
    repaintPicture();
    emit Resized();
}

void cpvPicViewer::refuseZoom()
{
    if (m_zoomIndex > 0) {
        const QPointer<cpvPicViewer> self(this);
        sayUnableToZoom(m_zoomIndex);
        if (self != nullptr) {
            setZoomFactor(1);
        }
        return;
    }
    // Too large even unzoomed: nothing can be shown, and one message is enough for a picture.
    hideParts();
    if (m_refusedPicture == m_dib.hDIBDC().cacheKey()) {
        return;
    }
    m_refusedPicture = m_dib.hDIBDC().cacheKey();
    const QPointer<cpvPicViewer> self(this);
    sayUnableToZoom(0);
    if (self != nullptr) {
        layoutPass(); // for a picture that was set meanwhile
    }
}

// Events run while the message stands; layouts that they ask for wait.
void cpvPicViewer::sayUnableToZoom(int zoomIndex)
{
    const QPointer<cpvPicViewer> self(this);
    m_reporting = true;
    platform::dialogs().showMessage(kUnableToZoom.arg(zoomIndex * 100), kZoomTitle,
                                    platform::BoxIcon::Exclamation);
    if (self != nullptr) {
        m_reporting = false;
    }
}

void cpvPicViewer::hideParts()
{
    const QScopedValueRollback changing(m_changing, true);
    m_layout = {};
    m_iDst->hide();
    m_corner->hide();
    for (Bar* bar : {&m_hSB, &m_vSB}) {
        bar->widget->hide();
        bar->widget->setMaximum(0);
        bar->last = {};
    }
}

void cpvPicViewer::applyLayout(const viewer::ViewerLayout& layout)
{
    const QScopedValueRollback changing(m_changing, true);
    const QPoint origin = clientArea().topLeft();
    m_layout = layout;
    m_hSB.widget->setGeometry(layout.hSB.translated(origin));
    m_vSB.widget->setGeometry(layout.vSB.translated(origin));
    m_corner->setGeometry(layout.corner.translated(origin));
    m_hSB.widget->setVisible(layout.barsVisible.horizontal);
    m_vSB.widget->setVisible(layout.barsVisible.vertical);
    m_corner->setVisible(layout.cornerVisible);
    m_iDst->setGeometry(layout.iDst.translated(origin));
    applyBar(m_hSB, layout.need.horizontal, layout.hMaximum, layout.iDst.width());
    applyBar(m_vSB, layout.need.vertical, layout.vMaximum, layout.iDst.height());
}

void cpvPicViewer::applyBar(Bar& bar, bool need, int maximum, int page)
{
    const viewer::BarMemory last = bar.last;
    const int value = viewer::valueAfterLayout(need, maximum, last, zoom());
    {
        // A range that shrinks cuts the value; what counts is the value before and after.
        const QSignalBlocker blocker(bar.widget);
        bar.widget->setRange(0, maximum);
        bar.widget->setPageStep(page);
        bar.widget->setSingleStep(zoom());
        bar.widget->setValue(value);
    }
    bar.last = {value, maximum};
    if (value != last.value) {
        emit Scrolled();
    }
}

void cpvPicViewer::setBar(Bar& bar, int value)
{
    bar.widget->setValue(value);
}

void cpvPicViewer::barChanged(Bar& bar, int value)
{
    bar.last.value = value;
    emit Scrolled();
    if (!m_changing) {
        repaintPicture();
    }
}

void cpvPicViewer::repaintPicture()
{
    m_iDst->update();
    placePanRectangle();
}

void cpvPicViewer::paintPicture(QPainter& painter)
{
    if (m_bestFit && paintFitted(painter)) {
        return;
    }
    const QRect area = m_iDst->rect();
    const int factor = zoom();
    viewer::Span h = viewer::paintSpan(m_layout.need.horizontal, m_hSB.widget->value(), factor,
                                       area.width(), m_dib.Width());
    viewer::Span v = viewer::paintSpan(m_layout.need.vertical, m_vSB.widget->value(), factor,
                                       area.height(), m_dib.Height());
    h = viewer::cutToPicture(h, factor, m_dib.Width());
    v = viewer::cutToPicture(v, factor, m_dib.Height());
    if (h.destination + h.destinationLength < area.width() ||
        v.destination + v.destinationLength < area.height() || !m_dib.hDIB()) {
        painter.fillRect(area, widgets::toQColor(m_backColor));
    }
    bool drawn = !m_dib.hDIB();
    m_dib.Stretch(painter, h.destination, v.destination, h.destinationLength, v.destinationLength,
                  h.source, v.source, h.sourceLength, v.sourceLength, kStretchMode, drawn);
    if (!drawn) {
        // No message may open inside a paint request.
        QMetaObject::invokeMethod(
            this,
            [this] {
                const QPointer<cpvPicViewer> self(this);
                sayUnableToZoom(m_zoomIndex);
                if (self != nullptr) {
                    setZoomFactor(1);
                }
            },
            Qt::QueuedConnection);
    }
}

// A picture that is shrunk is averaged once for its size and then only copied.
bool cpvPicViewer::paintFitted(QPainter& painter)
{
    const double ratio = m_iDst->devicePixelRatioF();
    const QSize device(qCeil(m_iDst->width() * ratio), qCeil(m_iDst->height() * ratio));
    if (!m_dib.hDIB() || (device.width() >= m_dib.Width() && device.height() >= m_dib.Height())) {
        return false;
    }
    const QImage& fitted = m_fitted.rendition(m_dib, device, ratio);
    if (fitted.isNull()) {
        return false;
    }
    painter.drawImage(QPoint(0, 0), fitted);
    return true;
}

void cpvPicViewer::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(clientArea(), widgets::toQColor(m_backColor));
    if (borderWidth() == 1) {
        qDrawPlainRect(&painter, rect(), palette().shadow().color());
    } else if (borderWidth() > 1) {
        qDrawShadePanel(&painter, rect(), palette(), true, borderWidth());
    }
}

void cpvPicViewer::resizeEvent(QResizeEvent* /*event*/)
{
    layoutPass();
}

void cpvPicViewer::showEvent(QShowEvent* /*event*/)
{
    layoutPass();
}
