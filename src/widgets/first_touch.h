#pragma once

#include <QObject>

class QWidget;

namespace widgets {

// Tells whether a key, a button, a finger or the wheel has come to the window of a widget since this
// was made. The widget outlives it.
class FirstTouch : public QObject {
public:
    explicit FirstTouch(const QWidget& part);

    [[nodiscard]] bool hasCome() const { return m_hasCome; }

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    const QWidget& m_part;
    bool m_hasCome = false;
};

} // namespace widgets
