#pragma once

#include "widgets/strip_window.h"

class QLineEdit;

// Form5rf: gives the file in hand another name in its folder. While that can't be done the window
// stays, and says nothing.
class Form5rf : public widgets::StripWindow {
    Q_OBJECT

public:
    Form5rf();

private:
    void rename();

    QString m_path; // the file's, which the field of the main window need not tell later
    QLineEdit* m_newName = nullptr;
};
