#pragma once

#include <QWidget>

// The small window beside a slider's knob that shows the value while the knob is dragged. It never
// takes the focus or the mouse.
class frmValueTip : public QWidget {
    Q_OBJECT

public:
    explicit frmValueTip(QWidget* parent);

    // Takes the size of the text.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const { return m_text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};

namespace widgets {

// The corner of a tip beside a knob: above a lying slider, to the right of a standing one, in the
// middle of the knob. All in screen pixels; pushed back inside the screen's rectangle.
[[nodiscard]] QPoint tipBesideRow(const QRect& slider, const QRect& knob, QSize tip,
                                  const QRect& screen);
[[nodiscard]] QPoint tipBesideColumn(const QRect& slider, const QRect& knob, QSize tip,
                                     const QRect& screen);

} // namespace widgets
