#pragma once

#include "acquire/scan_settings.h"
#include "platform/devices/scanners.h"
#include "platform/pictures/picture.h"
#include "widgets/strip_window.h"

#include <QPointer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace acquire {

class ScanControls;
class ScanPreview;

// The dialog of one scanner: its options, a preview on which the area is drawn, and the scan. It
// closes when the picture is there. Whatever goes wrong is a line of text in it.
class ScanDialog : public widgets::StripWindow {
    Q_OBJECT

public:
    // The settings are those of the scanner's dialog before, and are kept up to date; they outlive
    // this. The window, which may be null, owns it.
    ScanDialog(QWidget* window, const std::string& scanner, ScanSettings& settings);

    // Nothing without a whole scan.
    [[nodiscard]] const platform::Picture& picture() const { return m_picture; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    enum class State { Opening, Ready, Previewing, Scanning, Lost };

    void buildControls();
    void open();
    void take(const ScanOptions& options);
    void takeImage(const QImage& image);
    void takeFailure(platform::ScanFailure why);
    void takeRows(int soFar, int inAll);
    void set(platform::ScanRole role, const platform::ScanValue& value);
    void setArea(const QRectF& area);
    void preview();
    void scan();
    void cancel();
    void begin(State state, platform::ScanKind kind, const QString& text);
    void enter(State state, const QString& text);
    void showSize();
    [[nodiscard]] bool isBusy() const;

    std::string m_scanner;
    ScanSettings& m_settings;
    QPointer<platform::ScannerSession> m_session; // owned
    ScanOptions m_options;
    platform::Picture m_picture;
    State m_state = State::Opening;
    QPointer<QWidget> m_focusBefore; // the scanner was busy
    bool m_isFirst = true;           // the options have not been told since the scanner was opened

    ScanPreview* m_preview = nullptr; // children
    ScanControls* m_controls = nullptr;
    QLabel* m_size = nullptr;
    QLabel* m_status = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_previewButton = nullptr;
    QPushButton* m_scanButton = nullptr;
};

} // namespace acquire
