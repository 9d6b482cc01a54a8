#pragma once

#include "widgets/strip_window.h"

namespace shell {

// frmMsg: the question that the right button asks once, before it opens the menu from then on.
class frmMsgWindow : public widgets::StripWindow {
    Q_OBJECT

public:
    frmMsgWindow();

private:
    void answer(bool import);
};

} // namespace shell
