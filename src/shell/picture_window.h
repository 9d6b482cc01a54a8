#pragma once

#include "widgets/scaled_picture.h"

#include <QString>
#include <QWidget>

namespace shell {

// A window that is mostly one picture with a few lines of text over it: the start-up window
// frmWelcome and the about window frmAbout.
class PictureWindow : public QWidget {
public:
    // The picture is looked for under Images; without it a plain background shows the same texts.
    PictureWindow(const QString& name, const QString& picture, Qt::WindowFlags flags);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    widgets::ScaledPicture m_picture;
};

// Shown while the program starts.
QWidget* makeWelcomeWindow();

// Name, version, licence; closes by its button, Esc or a click.
QWidget* makeAboutWindow(QWidget* parent);

} // namespace shell
