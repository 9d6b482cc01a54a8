#pragma once

#include <QWidget>

class QAbstractButton;
class QVBoxLayout;

namespace widgets {
class TitleStrip;
}

namespace editing {

// A window without platform frame under a title strip, over the main window where there is one. The
// strip's box closes it. Return presses the one button set, Escape the other; either may be null.
class StripWindow : public QWidget {
    Q_OBJECT

public:
    explicit StripWindow(const QString& caption);

protected:
    // Where the window's controls go, below the strip.
    [[nodiscard]] QVBoxLayout& content() { return *m_content; }
    [[nodiscard]] widgets::TitleStrip& strip() { return *m_strip; }
    void setKeyButtons(QAbstractButton* accept, QAbstractButton* cancel);

    void keyPressEvent(QKeyEvent* event) override;

private:
    widgets::TitleStrip* m_strip = nullptr;
    QVBoxLayout* m_content = nullptr;
    QAbstractButton* m_accept = nullptr;
    QAbstractButton* m_cancel = nullptr;
};

} // namespace editing
