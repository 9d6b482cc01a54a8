#pragma once

#include "base/colours.h"
#include "core/viewer.h"
#include "platform/pictures/picture.h"
#include "viewer/dib32.h"
#include "viewer/fitted_picture.h"
#include "viewer/viewer_cursors.h"
#include "viewer/viewer_layout.h"

#include <QPointer>
#include <QRect>
#include <QVariantMap>
#include <QWidget>

class QPainter;
class QScrollBar;
class frmPanView;

namespace widgets {
class FocusRing;
}

// The zooming, scrolling control that shows a picture. It paints the visible part only, keeps two
// bars in step, lets the left button drag the picture, and can show a small overview of the whole
// (the pan view). Lengths are pixels; coordinates that it reports are picture pixels.
class cpvPicViewer : public QWidget, public core::Viewer {
    Q_OBJECT

public:
    explicit cpvPicViewer(QWidget* parent = nullptr);
    ~cpvPicViewer() override;

    // The window whose resize, minimise and restore the viewer follows, and that the pan view lies
    // on. Null: none.
    void setHost(QWidget* host);

    // Properties that a window stores, under their names. Values that stand at their default are
    // left out, and a name that is missing gets its default back.
    [[nodiscard]] QVariantMap saveProperties() const;
    void loadProperties(const QVariantMap& properties);

    [[nodiscard]] int Appearance() const { return m_appearance; }
    void setAppearance(int appearance); // 0 flat, 1 raised: how a border looks
    [[nodiscard]] base::Colour BackColor() const override { return m_backColor; }
    void setBackColor(base::Colour colour) override;
    [[nodiscard]] int BarsWidth() const { return m_barsWidth; }
    void setBarsWidth(int width); // 13 at least
    [[nodiscard]] bool BestFitMode() const { return m_bestFit; }
    void setBestFitMode(bool bestFit);
    [[nodiscard]] int BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(int style); // 0 none, 1 a border
    [[nodiscard]] bool Enabled() const { return isEnabled(); }
    [[nodiscard]] bool MouseScrolling() const { return m_mouseScrolling; }
    void setMouseScrolling(bool scrolls);
    // 0 bars appear when needed, 1 never; other values leave them as they are.
    [[nodiscard]] int ScrollBars() const { return static_cast<int>(m_barMode); }
    void setScrollBars(int mode);

    // The picture as it was handed in. Setting one of another type than a bitmap leaves the picture
    // that is shown; setting Nothing empties the viewer. PictureExists is true from then on in any
    // case, so a caller must bear a size of 0.
    [[nodiscard]] platform::Picture Picture() const override { return m_iSrc; }
    void setPicture(const platform::Picture& picture) override;
    [[nodiscard]] bool PictureExists() const override { return m_pictureExists; }
    // 16 bits: 0 without a picture, and for one beyond 32767.
    [[nodiscard]] int PictureWidth() const override;
    [[nodiscard]] int PictureHeight() const override;

    // Shows nothing any more; Picture() still gives what was handed in.
    void Clear() override;
    void Refresh() override;

    // Whole factors, 1 to 15; other values are forced into that range.
    [[nodiscard]] int ZoomFactor() const override;
    void setZoomFactor(int factor) override;
    void ZoomIn() override;
    void ZoomOut() override;
    void ZoomReal() override;

    // 0 top centre, 1 bottom centre, 2 left centre, 3 right centre, 4 centre, 5 top left, 6 top
    // right, 7 bottom left, 8 bottom right; other values only repaint.
    void Go(int position);
    // 0 up, 1 down, 2 left, 3 right; by amount times the zoom, at least by one.
    void Scroll(int direction, int amount);
    // The same, from one end on to the other.
    void ScrollLoop(int direction, int amount);
    // The picture pixel in the middle of the visible part.
    [[nodiscard]] int CenterX() const;
    [[nodiscard]] int CenterY() const;
    void CenterXY(int x, int y);
    // The visible part in picture pixels.
    [[nodiscard]] int CurrentLeft() const;
    [[nodiscard]] int CurrentTop() const;
    [[nodiscard]] int CurrentWidth() const;
    [[nodiscard]] int CurrentHeight() const;

    // Shows the overview without giving it the focus. The numbers are twips relative to the host; 0
    // leaves that one as it is. topMost lays it over whatever else lies on the host.
    void PanViewShow(int left, int top, int width, int height, bool topMost);
    void PanViewHide() override; // the window stays loaded
    void PanViewUnload();
    [[nodiscard]] bool PanViewVisible() const; // loaded, hidden or not
    void PanViewRefresh() override;

    void giveFocus() override;

signals:
    void Click();
    void ClickBack(); // beside the picture
    void DblClick();
    // Virtual key numbers; Shift sums 1 Shift, 2 Ctrl, 4 Alt.
    void KeyDown(int KeyCode, int Shift);
    void KeyPress(int KeyAscii);
    void KeyUp(int KeyCode, int Shift);
    // Button 1 left, 2 right, 4 middle; X and Y are picture pixels.
    void MouseDown(int Button, int Shift, int X, int Y);
    void MouseMove(int Button, int Shift, int X, int Y);
    void MouseUp(int Button, int Shift, int X, int Y);
    void MouseDownBack(int Button); // beside the picture: the background, a bar, their corner
    void Scrolled();                // a bar has changed, by hand or from code
    void Resized();                 // a layout pass has ended
    void Zoom();                    // the zoom was set and the layout is done
    void PanViewClick();
    void PanViewDblClick();
    void PanViewKeyDown(int KeyCode, int Shift);
    void PanViewKeyUp(int KeyCode, int Shift);
    void PanViewMouseDown(int Button, int Shift, int X, int Y);
    void PanViewMouseUp(int Button, int Shift, int X, int Y);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Bar {
        QScrollBar* widget = nullptr; // a child
        viewer::BarMemory last;       // the last seen value and maximum
    };

    void makeParts();
    [[nodiscard]] int zoom() const { return ZoomFactor(); }
    void setZoomIndex(int index);

    // picture_viewer_layout.cpp
    void layoutPass();
    void refuseZoom();
    void sayUnableToZoom(int zoomIndex);
    void hideParts();
    void applyLayout(const viewer::ViewerLayout& layout);
    void applyBar(Bar& bar, bool need, int maximum, int page);
    void setBar(Bar& bar, int value);
    void barChanged(Bar& bar, int value);
    void repaintPicture();
    void paintPicture(QPainter& painter);
    [[nodiscard]] bool paintFitted(QPainter& painter);
    [[nodiscard]] int borderWidth() const;
    [[nodiscard]] QRect clientArea() const;
    [[nodiscard]] QSize dibSize() const { return {m_dib.Width(), m_dib.Height()}; }

    // picture_viewer_input.cpp
    bool pictureEvent(QEvent* event);
    bool barEvent(QEvent* event);
    void pictureMousePress(QMouseEvent* event);
    void pictureMouseMove(QMouseEvent* event);
    void pictureMouseRelease(QMouseEvent* event);
    void dragTo(QPoint screen);
    void hostEvent(QEvent* event);
    [[nodiscard]] QPoint picturePoint(QPoint place) const;
    void setPointerIcon(viewer::CursorShape icon);
    void useCustomPointer(bool custom);
    void showPointer();

    // picture_viewer_pan.cpp
    void makePanView();
    void drawPanView();
    void placePanRectangle();
    void panPress(int button, int shift, QPoint place, QPoint screen);
    void panMove(QPoint place, QPoint screen);
    void panRelease(int button, int shift, QPoint place);
    void panDragTo(QPoint screen);
    void endPanDrag();
    [[nodiscard]] QRect miniature() const;

    platform::Picture m_iSrc;
    cDIB32 m_dib;
    viewer::FittedPicture m_fitted;
    viewer::ViewerCursors m_cursors;
    bool m_pictureExists = false;
    int m_zoomIndex = 0;

    int m_appearance = 1;
    base::Colour m_backColor = 0x8000000F;
    int m_barsWidth = 15;
    bool m_bestFit = false;
    int m_borderStyle = 0;
    bool m_mouseScrolling = true;
    viewer::BarMode m_barMode = viewer::BarMode::WhenNeeded;

    QWidget* m_iDst = nullptr; // children
    QWidget* m_corner = nullptr;
    widgets::FocusRing* m_focusRing = nullptr;
    Bar m_hSB;
    Bar m_vSB;
    viewer::ViewerLayout m_layout;
    QPointer<QWidget> m_host;

    // Set while values are changing: bars then don't repaint.
    bool m_changing = false;
    bool m_reporting = false;    // the message about the zoom is open
    qint64 m_refusedPicture = 0; // too large even at 100%; said once for each picture

    bool m_dragging = false;
    bool m_picturePressed = false; // a click is under way, on the picture or beside it
    bool m_backPressed = false;
    QPoint m_lastScreen;
    viewer::CursorShape m_pointerIcon = viewer::CursorShape::Release;
    bool m_customPointer = false;

    QPointer<frmPanView> m_fPV;
    viewer::FittedPicture m_miniature;
    QRect m_panRect;
    QRect m_panRange; // where the pointer may go during a drag, on the screen
    QPoint m_panLast; // the pointer's last place, on the screen
    bool m_panDragging = false;
};
