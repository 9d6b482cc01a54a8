#pragma once

#include "widgets/strip_window.h"

#include <QString>

class QComboBox;
class QLineEdit;

namespace albums {

// What a run takes from the setup window.
struct AlbumSetup {
    QString title;
    int quality = 0; // of JPEG files, by the digits that the text begins with
};

// What the window says now. It is loaded without being shown where it isn't there yet; then the
// thumbnails of the pane get its size for albums too.
[[nodiscard]] AlbumSetup albumSetup();

} // namespace albums

// frmWebRelease: what the next albums look like. "Ok" hides the window, so that its values hold
// until the program ends or the window is opened again, which starts from the defaults; any other
// way out unloads it.
class frmWebRelease : public widgets::StripWindow {
    Q_OBJECT

public:
    frmWebRelease();

    [[nodiscard]] albums::AlbumSetup setup() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildControls();
    void startFromDefaults();
    void accept();

    QComboBox* m_size = nullptr;
    QLineEdit* m_quality = nullptr;
    QLineEdit* m_title = nullptr;
};
