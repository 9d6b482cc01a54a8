#pragma once

#include <QLabel>

namespace widgets {

// A line of plain text that may be longer than its place: what has no room is left out in its
// middle, and the whole of it stands in the tip and for screen readers.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(const QString& text, QWidget* parent = nullptr);

    // What of the text is painted now.
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace widgets
