#pragma once

#include "widgets/button_face.h"

#include <QAbstractButton>
#include <QTimer>
#include <QVariantMap>

// The program's push button: one control that can look like fourteen kinds of button. It draws
// itself whole, so its look doesn't depend on the desktop's theme. Its click is the signal
// clicked() of every button; it comes from the mouse, the space bar, the access key, a screen
// reader and click(). Setters do nothing when the value is the one already held. Setting a value
// from code never clicks. The text(), icon(), checkable and checked of the base class belong to the
// control itself; use Caption, PictureNormal, CheckBoxBehaviour and Value.
class chameleonButton : public QAbstractButton {
    Q_OBJECT

public:
    // The name becomes the objectName and the first Caption.
    explicit chameleonButton(QWidget* parent = nullptr, const QString& name = {});

    [[nodiscard]] int ButtonType() const { return m_buttonType; }
    void setButtonType(int type); // 1 to 14; other numbers change nothing
    [[nodiscard]] int ColorScheme() const { return m_source.scheme; }
    void
    setColorScheme(int scheme); // 2 own colours, 3 fixed greys, 4 the parent's, else the system's
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void setCaption(const QString& caption); // "&" marks the access key, "&&" is an "&"
    [[nodiscard]] bool Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }

    // setFont() and setEnabled() are those of every widget.
    [[nodiscard]] const QFont& Font() const { return font(); }
    [[nodiscard]] bool FontBold() const { return font().bold(); }
    void setFontBold(bool on);
    [[nodiscard]] bool FontItalic() const { return font().italic(); }
    void setFontItalic(bool on);
    [[nodiscard]] bool FontUnderline() const { return font().underline(); }
    void setFontUnderline(bool on);
    [[nodiscard]] double FontSize() const { return font().pointSizeF(); } // points
    void setFontSize(double points);
    [[nodiscard]] QString FontName() const { return font().family(); }
    void setFontName(const QString& name);

    [[nodiscard]] bool ShowFocusRect() const { return m_showFocusRect; }
    void setShowFocusRect(bool on);
    [[nodiscard]] base::Colour BackColor() const { return m_source.BackColor; }
    void setBackColor(base::Colour colour);
    [[nodiscard]] base::Colour BackOver() const { return m_source.BackOver; }
    void setBackOver(base::Colour colour);
    [[nodiscard]] base::Colour ForeColor() const { return m_source.ForeColor; }
    void setForeColor(base::Colour colour);
    [[nodiscard]] base::Colour ForeOver() const { return m_source.ForeOver; }
    void setForeOver(base::Colour colour);
    [[nodiscard]] base::Colour MaskColor() const { return m_source.MaskColor; }
    void setMaskColor(base::Colour colour);
    [[nodiscard]] bool UseMaskColor() const { return m_useMaskColor; }
    void setUseMaskColor(bool on);
    [[nodiscard]] bool SoftBevel() const { return m_source.softBevel; }
    void setSoftBevel(bool on);

    // Pointer shape while over the button: 0 default, 1 to 15 the classic shapes, 99 MouseIcon.
    [[nodiscard]] int MousePointer() const { return m_mousePointer; }
    void setMousePointer(int shape);
    [[nodiscard]] const QImage& MouseIcon() const { return m_mouseIcon; }
    void setMouseIcon(const QImage& icon);
    [[nodiscard]] bool HandPointer() const { return m_handPointer; }
    void setHandPointer(bool on);

    [[nodiscard]] const widgets::ScaledPicture& PictureNormal() const { return m_pictureNormal; }
    void setPictureNormal(const widgets::ScaledPicture& picture);
    // Shown while the pointer is over the button; without it PictureNormal stays.
    [[nodiscard]] const widgets::ScaledPicture& PictureOver() const { return m_pictureOver; }
    void setPictureOver(const widgets::ScaledPicture& picture);
    [[nodiscard]] int PicturePosition() const { return m_picturePosition; }
    void
    setPicturePosition(int position); // 0 left, 1 right, 2 above, 3 below, 4 behind the caption
    [[nodiscard]] bool UseGreyscale() const { return m_useGreyscale; }
    void setUseGreyscale(bool on); // grey until the pointer is over it
    [[nodiscard]] int SpecialEffect() const { return m_specialEffect; }
    void setSpecialEffect(int effect); // 1 and 2 draw a shadow of the picture

    [[nodiscard]] bool CheckBoxBehaviour() const { return m_checkBoxBehaviour; }
    void setCheckBoxBehaviour(bool on); // a click flips Value, and a true Value looks pressed
    [[nodiscard]] bool Value() const { return m_value; }
    void setValue(bool value);

    // Draws the frame of the window's default button even without the focus.
    void setDisplayedAsDefault(bool on);

    [[nodiscard]] WId hwnd() const { return effectiveWinId(); }

    // Keeps the picture on screen as it is until Refresh().
    void DisableRefresh();
    void Refresh();

    // Makes the button look like the state, unless it does already and force is off. Nothing is
    // drawn before the button is first shown.
    void Redraw(widgets::ButtonState state, bool force);

    // How often Redraw() drew something.
    [[nodiscard]] int redrawCount() const { return m_redrawCount; }
    [[nodiscard]] const widgets::ButtonPalette& workingPalette() const { return m_palette; }
    [[nodiscard]] bool MouseIsOver() const { return m_mouseIsOver; }
    [[nodiscard]] bool isOverTimerRunning() const { return m_overTimer.isActive(); }

    // All stored properties by their keys, and back. A key that is missing sets its default.
    [[nodiscard]] QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap& bag);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void MouseDown(Qt::MouseButton button, QPoint position);
    void MouseMove(Qt::MouseButtons buttons, QPoint position);
    void MouseUp(Qt::MouseButton button, QPoint position);
    void KeyDown(int key);
    void KeyPress(const QString& text);
    void KeyUp(int key);
    void MouseOver();
    void MouseOut();

    // A stored property has changed; names its key, except "PICO" for PictureOver.
    void PropertyChanged(const QString& notice);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& point) const override;
    void nextCheckState() override;

private:
    template<class Held> void changeLook(Held& member, const Held& value, const char* notice);
    void setColours();
    void applyShape();
    void applyPointer();
    void checkPointer();
    void pointerLeft();
    void followAccessibleToggle(bool checked);
    [[nodiscard]] widgets::ButtonFace composeFace(widgets::ButtonState state) const;
    [[nodiscard]] const widgets::ScaledPicture& currentPicture() const;

    int m_buttonType = 2;
    widgets::PaletteSource m_source;
    widgets::ButtonPalette m_palette;
    QString m_caption;
    bool m_showFocusRect = true;
    bool m_useMaskColor = true;
    int m_mousePointer = 0;
    QImage m_mouseIcon;
    bool m_handPointer = false;
    widgets::ScaledPicture m_pictureNormal;
    widgets::ScaledPicture m_pictureOver;
    int m_picturePosition = 0;
    bool m_useGreyscale = false;
    int m_specialEffect = 0;
    bool m_checkBoxBehaviour = false;
    bool m_value = false;
    bool m_displayedAsDefault = false;

    widgets::ButtonFace m_face; // as last drawn
    widgets::ButtonState m_lastState = widgets::ButtonState::Normal;
    QString m_lastCaption;
    int m_redrawCount = 0;
    bool m_refreshDisabled = false;
    bool m_wasShown = false;
    bool m_mouseIsOver = false;
    bool m_hasFocus = false;
    Qt::MouseButton m_pressedButton = Qt::NoButton;
    int m_lastKey = 0;
    QTimer m_overTimer;
};
