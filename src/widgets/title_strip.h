#pragma once

#include <QImage>
#include <QPointer>
#include <QString>
#include <QWidget>

class QAbstractButton;
class QPainter;

namespace widgets {

// The title bar that a window without platform frame draws for itself: a picture or one plain
// colour, a caption, and a box that closes. A left press on it drags the window.
class TitleStrip : public QWidget {
    Q_OBJECT

public:
    // The strip's own objectName is "Picture2"; the close box gets the name given.
    explicit TitleStrip(QWidget* parent = nullptr,
                        const QString& closeBoxName = QStringLiteral("Max"));

    // Takes the look that the settings ask for now: the picture "Images/Titlebar.gif" when
    // InterfaceB is true, else the colour InterfaceColor without a picture. A picture that is
    // missing leaves the strip without one, and a colour that is no number leaves the colour as it
    // was. A window calls this when it loads; a strip never follows a later change by itself.
    void applyLook();

    // Empties the picture and keeps the colour, as windows do when they unload.
    void clearPicture();
    [[nodiscard]] bool hasPicture() const { return !m_picture.isNull(); }
    [[nodiscard]] const QColor& backgroundColour() const { return m_background; }

    // The text on the strip; empty for none. It is cut with an ellipsis where it has no room.
    [[nodiscard]] const QString& caption() const { return m_caption; }
    void setCaption(const QString& caption);

    // Black or white, whichever reads better on a part of the strip as it looks now.
    [[nodiscard]] QColor inkOver(const QRect& part) const;
    // The ink of the caption at its place.
    [[nodiscard]] QColor captionColour() const;

    // What a press drags: the strip's window at first. A child widget is moved inside its parent;
    // null for a strip that doesn't drag. The strip doesn't own it.
    void setDragTarget(QWidget* target);

    [[nodiscard]] QAbstractButton* closeBox() const { return m_closeBox; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void closeRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void drawPicture(QPainter& painter) const;
    [[nodiscard]] QFont captionFont() const;
    [[nodiscard]] QRect captionPlace() const;

    QAbstractButton* m_closeBox = nullptr; // a child
    QString m_caption;
    QColor m_background;
    QImage m_picture;
    QPointer<QWidget> m_dragTarget;
    bool m_dragsWindow = true;
};

} // namespace widgets
