#pragma once

#include <QWidget>

class QAbstractButton;
class QVBoxLayout;

namespace widgets {

class FormBuilder;
class TitleStrip;

// A window without platform frame: a title strip, whose box closes it, over a column for the
// window's controls. It belongs to the main window where there is one, and shows itself in the
// middle of it unless it was given a place. Return presses one button, unless another one has the
// focus, and Escape the other.
// Of the type Qt::Widget it lies on the main window as its child, and leaves the focus where it is.
class StripWindow : public QWidget {
    Q_OBJECT

public:
    explicit StripWindow(const QString& caption, Qt::WindowType type = Qt::Dialog);

    // The text of the strip and of the window.
    void setCaption(const QString& caption);

    void setVisible(bool visible) override;

protected:
    // Where the window's controls go, below the strip.
    [[nodiscard]] QVBoxLayout& content() { return *m_content; }
    [[nodiscard]] TitleStrip& strip() { return *m_strip; }
    // Either may be null. Until they are set Return presses nothing and Escape the box of the
    // strip.
    void setKeyButtons(QAbstractButton* accept, QAbstractButton* cancel);

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    friend class FormBuilder; // puts the controls in and sets the buttons

    void enterFirstStop();
    void letButtonsTakeReturn();
    void placeInTheMiddle();

    TitleStrip* m_strip = nullptr;
    QVBoxLayout* m_content = nullptr;
    QAbstractButton* m_accept = nullptr;
    QAbstractButton* m_cancel = nullptr;
};

} // namespace widgets
