#pragma once

#include <QWidget>

namespace widgets {

// A line along the inside of a widget while the keys go there because Tab led to it. A press or a
// command that brings the focus shows none. It lies over the widget and its children, takes no
// presses, and belongs to the widget.
class FocusRing : public QWidget {
public:
    explicit FocusRing(QWidget& target);

    static constexpr int kWidth = 3; // pixels

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void focusCame(Qt::FocusReason reason);
    void focusWent(Qt::FocusReason reason);
    void follow();

    QWidget& m_target;
    bool m_cameByKey = false;
};

} // namespace widgets
