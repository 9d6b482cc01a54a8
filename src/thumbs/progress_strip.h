#pragma once

#include "core/interfaces.h"

#include <QWidget>

namespace thumbs {

// A strip that is filled from the left to the fraction done.
class ProgressStrip : public QWidget, public core::ProgressStrip {
    Q_OBJECT

public:
    explicit ProgressStrip(QWidget* parent = nullptr);

    void showStrip(bool visible) override { setVisible(visible); }
    void setBackground(base::Colour colour) override;
    void fill(double fraction, base::Colour colour) override;

    [[nodiscard]] int filledWidth() const; // pixels

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    base::Colour m_background = 0xE0E0E0;
    base::Colour m_colour = 0;
    double m_fraction = 0.0;
};

} // namespace thumbs
