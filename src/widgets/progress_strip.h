#pragma once

#include "core/progress_strip.h"

#include <QElapsedTimer>
#include <QWidget>

namespace widgets {

// Gradient: the thin strip that fills from the left while something long runs. Hidden at first.
class ProgressStrip : public QWidget, public core::ProgressStrip {
public:
    explicit ProgressStrip(QWidget* parent = nullptr);

    // Shown or hidden, it is empty.
    void showStrip(bool visible) override;
    void setBackground(base::Colour colour) override;
    void fill(double fraction, base::Colour colour) override;
    // The same for work that lets no events run: the strip shows until the fraction is 1 and is
    // painted before this returns, though no oftener than a screen has use for.
    void fillAtOnce(double fraction, base::Colour colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QElapsedTimer m_painted; // since the last painting at once
    bool m_shownAtOnce = false;
    double m_fraction = 0;
    base::Colour m_colour = 0;
    base::Colour m_background = 0xE0E0E0;
};

} // namespace widgets
