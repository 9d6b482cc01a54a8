#pragma once

#include "widgets/strip_window.h"

class QLineEdit;
class QRadioButton;

// Favorties: adds the picture shown to the favourites, under a name typed here or under its own
// path.
class Favorties : public widgets::StripWindow {
    Q_OBJECT

public:
    Favorties();

private:
    void add();

    QLineEdit* m_newName = nullptr;
    QLineEdit* m_newPath = nullptr;
    QRadioButton* m_underName = nullptr;
};
