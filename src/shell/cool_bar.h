#pragma once

#include <QWidget>
#include <array>
#include <vector>

namespace shell {

// CoolBar: three bands of tools over the work area. Bands stand in one row of 36 pixels while they
// fit; where they don't, the flexible one moves to the next row, and in narrow windows the keys do
// so too. A hidden band leaves no gap.
class CoolBar : public QWidget {
    Q_OBJECT

public:
    enum class Band { Commands = 1, FileName = 2, Keys = 3 };

    explicit CoolBar(QWidget* parent);

    // The band takes the widget; the FileName band stretches, the others keep their size hint.
    void setBand(Band band, QWidget* content);
    void setBandVisible(Band band, bool visible);
    [[nodiscard]] bool isBandVisible(Band band) const;

    // Room kept free at the right end of the first row, for the animation; pixels.
    void setReservedWidth(int width);

    // Lays the bands out for this width and takes the height that they need.
    void layOut(int width);

    static constexpr int kRowHeight = 36; // pixels; 540 twips

signals:
    void heightChanged();

private:
    struct Slot {
        QWidget* content = nullptr;
        bool visible = true;
    };

    [[nodiscard]] const Slot& slot(Band band) const
    {
        return m_slots[static_cast<std::size_t>(band) - 1];
    }
    Slot& slot(Band band) { return m_slots[static_cast<std::size_t>(band) - 1]; }
    [[nodiscard]] bool isShown(Band band) const;
    [[nodiscard]] int widthWithGap(Band band) const;
    void place(Band band, int x, int row, int width);
    void paintEvent(QPaintEvent* event) override;

    std::array<Slot, 3> m_slots;
    int m_reserved = 0;
};

} // namespace shell
