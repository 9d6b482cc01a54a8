#pragma once

#include "core/interfaces.h"

#include <QElapsedTimer>
#include <QWidget>
#include <array>

class QLabel;

namespace shell {

// StateBar: eight panels in a row. Panels that hold a file's name and messages share the room; the
// others keep the width that their longest usual text needs.
class PanelBar : public QWidget, public core::StatusBar {
public:
    explicit PanelBar(QWidget* parent);

    void setPanel(core::Panel panel, const QString& text) override;
    [[nodiscard]] QString panel(core::Panel panel) const override;

private:
    void paintEvent(QPaintEvent* event) override;

    static constexpr int kPanels = 8;
    std::array<QLabel*, kPanels> m_labels{};
    std::array<QString, kPanels> m_texts;
};

// Gradient: the thin strip that fills from the left while something long runs.
class FillStrip : public QWidget, public core::ProgressStrip {
public:
    explicit FillStrip(QWidget* parent);

    void showStrip(bool visible) override;
    void setBackground(base::Colour colour) override;
    void fill(double fraction, base::Colour colour) override;
    // The same for work that lets no events run: the strip shows until the fraction is 1 and is
    // painted before this returns, though no oftener than a screen has use for.
    void fillAtOnce(double fraction, base::Colour colour);

private:
    void paintEvent(QPaintEvent* event) override;

    QElapsedTimer m_painted; // since the last painting at once
    bool m_shownAtOnce = false;
    double m_fraction = 0;
    base::Colour m_colour = 0;
    base::Colour m_background = 0xE0E0E0;
};

} // namespace shell
