#pragma once

#include "widgets/strip_window.h"

// The question that the right button asks once, before it opens the menu from then on.
class frmMsg : public widgets::StripWindow {
    Q_OBJECT

public:
    frmMsg();

private:
    void answer(bool import);
};
