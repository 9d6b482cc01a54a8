#pragma once

#include <QAbstractButton>

namespace preferences {

// One of the buttons that bring a page forward: a line of text, marked while its page is shown.
class PageButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit PageButton(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintGround(QPainter& painter) const;
};

} // namespace preferences
