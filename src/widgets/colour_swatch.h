#pragma once

#include "base/colours.h"

#include <QAbstractButton>
#include <QVariantMap>

// A field that shows a colour. A click, or the space bar, asks for another one.
class AASelectColor : public QAbstractButton {
    Q_OBJECT

public:
    explicit AASelectColor(QWidget* parent = nullptr);

    [[nodiscard]] base::Colour Color() const { return m_colour; }
    void setColor(base::Colour colour); // from code; doesn't signal

    [[nodiscard]] QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap& bag);

    [[nodiscard]] QSize sizeHint() const override;

signals:
    // The user has chosen; not raised when the choice is cancelled.
    void Changed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void chooseColour();

    base::Colour m_colour = 0xFFFFFF;
    QWidget* m_picColor = nullptr; // the child that fills the control with the colour
};
