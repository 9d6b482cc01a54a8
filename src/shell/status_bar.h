#pragma once

#include "core/status_bar.h"

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

} // namespace shell
