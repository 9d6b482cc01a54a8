#pragma once

#include <QLabel>

namespace platform {

// A label for plain words that may hold long paths: it wraps between words where it can, inside
// them where it must. Words that would fill the screen lose their middle.
class WrappedLabel : public QLabel {
public:
    WrappedLabel(const QString& text, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QSize sizeWithin(int width) const;
};

} // namespace platform
