#pragma once

#include <QLineEdit>

namespace widgets {

// A field that selects all of its text and turns light violet while it has the focus.
class FocusField : public QLineEdit {
    Q_OBJECT

public:
    explicit FocusField(QWidget* parent = nullptr);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QPalette m_restingPalette;
    bool m_isMarked = false;
};

} // namespace widgets
