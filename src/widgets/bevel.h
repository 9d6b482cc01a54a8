#pragma once

#include "base/colours.h"

#include <QWidget>
#include <array>

// A frame one pixel wide that looks sunk or raised. It is nothing but its four strips; what lies
// behind it shows, and the mouse passes through.
class Bevel : public QWidget {
    Q_OBJECT

public:
    explicit Bevel(QWidget* parent = nullptr);

    [[nodiscard]] int BevelSytle() const { return m_style; }
    void setBevelSytle(int style); // 0 sunk, 2 raised; any other number changes nothing

    // Of the strips by their places: 0 top, 1 left, 2 bottom, 3 right.
    [[nodiscard]] base::Colour stripColour(int strip) const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    static constexpr int kStrips = 4;

    int m_style = 0;
    std::array<QWidget*, kStrips> m_strips{}; // children Picture1 to Picture4
};
