#pragma once

#include "widgets/strip_window.h"

#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace editing {

// The other side of a picture whose one side gets a new length, in pixels, rounded half to even.
// Nothing where the sides give no proportion, or one beyond 32 bits.
[[nodiscard]] std::optional<int> proportionalLength(double length, int ownSide, int otherSide);

} // namespace editing

// The scale dialog. Its input and output are the resize values of the process-wide state; leaving
// it by anything but its Ok button counts as cancelling.
class Form4 : public widgets::StripWindow {
    Q_OBJECT

public:
    Form4();

private:
    void buildControls();
    void followWidth();
    void followHeight();
    void accept();
    void cancel();

    QLabel* m_original = nullptr;
    QLineEdit* m_width = nullptr;
    QLineEdit* m_height = nullptr;
    QCheckBox* m_keepProportions = nullptr;
};
