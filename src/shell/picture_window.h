#pragma once

#include "widgets/scaled_picture.h"

#include <QString>
#include <QWidget>

class QPushButton;
class QVBoxLayout;

namespace shell {

// A window without frame that is mostly one picture, which holds the program's name, with a few
// lines of text over or under it: the start-up window frmWelcome and the about window frmAbout.
class PictureWindow : public QWidget {
public:
    // The picture is looked for under Images; without it the name stands as text over a plain
    // background.
    PictureWindow(const QString& name, const QString& picture, QWidget* parent,
                  Qt::WindowFlags flags);

    void addLine(const QString& text, int pointSize);
    [[nodiscard]] QVBoxLayout& column() { return *m_column; }
    // The height of the picture, 0 without one.
    [[nodiscard]] int pictureHeight() const;
    // Adds the button that closes the window, as Esc does.
    QPushButton& addClose();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QVBoxLayout* m_column = nullptr;
    QPushButton* m_close = nullptr;
    widgets::ScaledPicture m_picture;
};

// Shown while the program starts.
QWidget* makeWelcomeWindow();

// Name, version, licence; closes by its button, Return or Esc. It stays above its parent and goes
// with it.
QWidget* makeAboutWindow(QWidget* parent);

} // namespace shell
