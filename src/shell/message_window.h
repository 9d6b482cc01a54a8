#pragma once

#include <QWidget>

namespace shell {

// frmMsg: the question that the right button asks once, before it opens the menu from then on.
class frmMsgWindow : public QWidget {
    Q_OBJECT

public:
    explicit frmMsgWindow(QWidget* parent);

private:
    void answer(bool import);
};

} // namespace shell
