#pragma once

#include "base/colours.h"
#include "widgets/scaled_picture.h"
#include "widgets/slider_scale.h"

#include <QVariantMap>
#include <QWidget>

class frmValueTip;

namespace widgets {

// What a setter answers; the number is the one that programs know the error by.
enum class PropertyError { None = 0, InvalidValue = 380 };

class SliderKnob;

} // namespace widgets

// A rail with a knob that the mouse drags, for whole numbers. The keys of the arrows, Page Up and
// Down, Home and End move it too. ValueChanged comes for every new value, whoever sets it.
class cpvSlider : public QWidget {
    Q_OBJECT

public:
    explicit cpvSlider(QWidget* parent = nullptr);
    ~cpvSlider() override;

    [[nodiscard]] bool Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }
    [[nodiscard]] base::Colour BackColor() const { return m_backColor; }
    void setBackColor(base::Colour colour);

    // A maximum at or below the minimum, a minimum at or above the maximum, and a value outside the
    // two are refused and change nothing. Raising the minimum lifts a value below it; a value above
    // a lowered maximum stays.
    [[nodiscard]] int Max() const { return m_scale.maximum; }
    [[nodiscard]] widgets::PropertyError setMax(int maximum);
    [[nodiscard]] int Min() const { return m_scale.minimum; }
    [[nodiscard]] widgets::PropertyError setMin(int minimum);
    [[nodiscard]] int Value() const { return m_value; }
    [[nodiscard]] widgets::PropertyError setValue(int value);

    [[nodiscard]] int Orientation() const { return static_cast<int>(m_scale.axis); }
    void setOrientation(int orientation); // 0 lying, 1 standing; others change nothing
    [[nodiscard]] int RailStyle() const { return m_railStyle; }
    void setRailStyle(int style); // 0 sunken, 1 raised, 2 etched, 3 bump, 99 RailPicture
    [[nodiscard]] const widgets::ScaledPicture& SliderIcon() const;
    void
    setSliderIcon(const widgets::ScaledPicture& icon); // gives the knob its size; null: own look
    [[nodiscard]] const widgets::ScaledPicture& RailPicture() const { return m_iRailPicture; }
    void setRailPicture(const widgets::ScaledPicture& picture);
    [[nodiscard]] bool ShowValueTip() const { return m_showValueTip; }
    void setShowValueTip(bool on) { m_showValueTip = on; }

    [[nodiscard]] bool isDragging() const { return m_dragging; }
    // Where the knob stands, in pixels of the control.
    [[nodiscard]] QRect knobRectangle() const;
    // Null until the first drag that shows one.
    [[nodiscard]] const frmValueTip* valueTip() const { return m_tip; }

    [[nodiscard]] QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap& bag);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void Click();
    void ArrivedFirst();
    void ArrivedLast();
    void ValueChanged();
    void MouseDown(Qt::MouseButton button);
    void MouseUp(Qt::MouseButton button);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] bool isLying() const;
    [[nodiscard]] widgets::SliderScale scale() const;
    [[nodiscard]] QRect railRectangle() const;
    void takeValue(int value);
    void placeKnob();
    void moveKnob(int position);
    void drag(QPointF pointer);
    void stepBy(qint64 steps);
    void showTip();
    void hideTip();

    base::Colour m_backColor = base::systemColour(15);
    widgets::SliderScale m_scale; // its travel is worked out when asked
    int m_value = 0;
    int m_railStyle = 0;
    widgets::ScaledPicture m_iRailPicture;
    bool m_showValueTip = true;

    bool m_dragging = false;
    double m_grabX = 0; // where the knob was grabbed, from its corner
    double m_grabY = 0;
    widgets::SliderKnob* m_knob = nullptr; // the child Slider
    frmValueTip* m_tip = nullptr;          // a child window, made when first shown
};
