#pragma once

#include "widgets/strip_window.h"

#include <QLineEdit>
#include <QPointer>

class QPushButton;
class ctlExplorer;

namespace preferences {

// Shows FilePreivew modally; it opens on the folder that stands in the field, and writes the chosen
// one there.
void showFolderChooser(QLineEdit& field);

} // namespace preferences

// Chooses a folder in a tree. It belongs to the settings window where that is open.
class FilePreivew : public widgets::StripWindow {
    Q_OBJECT

public:
    FilePreivew();

    // The field stays its owner's and may go before the window does.
    void setField(QLineEdit& field);

private:
    [[nodiscard]] bool isFolderChosen() const;
    void offerFolder();
    void accept();

    ctlExplorer* m_explorer = nullptr;
    QPushButton* m_ok = nullptr;
    QPointer<QLineEdit> m_field;
};
