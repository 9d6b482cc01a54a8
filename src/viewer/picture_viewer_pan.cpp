#include "viewer/picture_viewer.h"

#include "base/twips.h"
#include "viewer/pan_layout.h"
#include "viewer/pan_view_window.h"
#include "widgets/key_codes.h"

#include <QScopedValueRollback>
#include <QScrollBar>

void cpvPicViewer::PanViewShow(int left, int top, int width, int height, bool topMost)
{
    if (m_fPV == nullptr) {
        makePanView();
    }
    QRect place = m_fPV->geometry();
    if (left != 0) {
        place.moveLeft(base::pixelsFromTwips(left));
    }
    if (top != 0) {
        place.moveTop(base::pixelsFromTwips(top));
    }
    if (width != 0) {
        place.setWidth(base::pixelsFromTwips(width));
    }
    if (height != 0) {
        place.setHeight(base::pixelsFromTwips(height));
    }
    m_fPV->setGeometry(place);
    drawPanView();
    m_fPV->show();
    if (topMost) {
        m_fPV->raise();
    }
}

void cpvPicViewer::PanViewHide()
{
    endPanDrag();
    if (m_fPV == nullptr) {
        return;
    }
    // Else the focus would go to whatever comes next on the window.
    if (m_fPV->window()->focusWidget() == m_fPV) {
        giveFocus();
    }
    m_fPV->hide();
}

void cpvPicViewer::PanViewUnload()
{
    PanViewHide();
    if (m_fPV == nullptr) {
        return;
    }
    m_fPV->disconnect(this);
    m_fPV->deleteLater();
    m_fPV = nullptr;
    m_miniature.clear();
}

bool cpvPicViewer::PanViewVisible() const
{
    return m_fPV != nullptr;
}

void cpvPicViewer::PanViewRefresh()
{
    drawPanView();
}

void cpvPicViewer::makePanView()
{
    m_fPV = new frmPanView(m_host != nullptr ? m_host.data() : window());
    frmPanView* view = m_fPV;
    connect(view, &frmPanView::Click, this, &cpvPicViewer::PanViewClick);
    connect(view, &frmPanView::DblClick, this, &cpvPicViewer::PanViewDblClick);
    connect(view, &frmPanView::KeyDown, this, &cpvPicViewer::PanViewKeyDown);
    connect(view, &frmPanView::KeyUp, this, &cpvPicViewer::PanViewKeyUp);
    connect(view, &frmPanView::MouseDown, this, &cpvPicViewer::panPress);
    connect(view, &frmPanView::MouseMove, this, &cpvPicViewer::panMove);
    connect(view, &frmPanView::MouseUp, this, &cpvPicViewer::panRelease);
    connect(view, &frmPanView::ClientChanged, this, &cpvPicViewer::drawPanView);
}

QRect cpvPicViewer::miniature() const
{
    return viewer::miniaturePlace(m_fPV->clientArea().size(), dibSize());
}

void cpvPicViewer::drawPanView()
{
    if (m_fPV == nullptr) {
        return;
    }
    if (!m_dib.hDIB() || m_fPV->clientArea().isEmpty()) {
        m_miniature.clear();
        m_fPV->setMiniature({}, {});
    } else {
        const QRect place = miniature();
        const double ratio = m_fPV->devicePixelRatioF();
        const QSize device = (QSizeF(place.size()) * ratio).toSize();
        m_fPV->setMiniature(m_miniature.rendition(m_dib, device, ratio), place);
    }
    placePanRectangle();
}

void cpvPicViewer::placePanRectangle()
{
    // A drag moves the rectangle itself; placing it by the bars then would only add their rounding.
    if (m_fPV == nullptr || m_panDragging) {
        return;
    }
    if (m_bestFit || !m_dib.hDIB() || m_layout.iDst.isEmpty()) {
        m_panRect = {};
    } else {
        const QPoint values(m_hSB.widget->value(), m_vSB.widget->value());
        m_panRect =
            viewer::clipRectangle(miniature(), dibSize(), {values, m_layout.iDst.size(), zoom()});
    }
    m_fPV->setClipRect(m_panRect);
}

void cpvPicViewer::panPress(int button, int shift, QPoint place, QPoint screen)
{
    if (button == widgets::kLeftButton && !m_bestFit && m_panRect.contains(place)) {
        const QRect range = viewer::pointerRange(miniature(), m_panRect, place);
        m_panRange = range.translated(screen - place);
        m_panLast = screen;
        m_panDragging = true;
        m_fPV->setCursor(m_cursors.at(viewer::CursorShape::Grab, devicePixelRatioF()));
    }
    emit PanViewMouseDown(button, shift, place.x(), place.y());
}

void cpvPicViewer::panMove(QPoint place, QPoint screen)
{
    if (m_panDragging) {
        panDragTo(screen);
    } else if (!m_bestFit && m_panRect.contains(place)) {
        m_fPV->setCursor(m_cursors.at(viewer::CursorShape::Release, devicePixelRatioF()));
    } else {
        m_fPV->unsetCursor();
    }
}

void cpvPicViewer::panDragTo(QPoint screen)
{
    const QPoint pointer = viewer::confined(screen, m_panRange);
    m_panRect.translate(pointer - m_panLast);
    m_panLast = pointer;
    const QRect whole = miniature();
    const auto h = viewer::barValueFor({whole.x(), whole.width(), m_panRect.x(), m_panRect.width()},
                                       m_dib.Width(), zoom(), m_layout.hMaximum);
    const auto v =
        viewer::barValueFor({whole.y(), whole.height(), m_panRect.y(), m_panRect.height()},
                            m_dib.Height(), zoom(), m_layout.vMaximum);
    {
        const QScopedValueRollback changing(m_changing, true);
        setBar(m_hSB, h.value_or(m_hSB.widget->value()));
        setBar(m_vSB, v.value_or(m_vSB.widget->value()));
    }
    m_fPV->setClipRect(m_panRect);
    repaintPicture();
}

void cpvPicViewer::panRelease(int button, int shift, QPoint place)
{
    endPanDrag();
    emit PanViewMouseUp(button, shift, place.x(), place.y());
}

void cpvPicViewer::endPanDrag()
{
    if (!m_panDragging) {
        return;
    }
    m_panDragging = false;
    placePanRectangle();
}
