#pragma once

#include "platform/pictures/jpeg_preview.h"
#include "widgets/strip_window.h"

#include <QString>
#include <memory>

class QLineEdit;
class QSlider;

namespace editing {

// Shows frmSaveJPGc modally for the file that is to be written.
void showJpegWindow(const QString& outputPath);

} // namespace editing

// Asks for the quality of a JPEG file and writes it from the save's working file. Every quality
// that the slider passes is converted into another working file at once; loading the window is such
// a change already.
class frmSaveJPGc : public widgets::StripWindow {
    Q_OBJECT

public:
    frmSaveJPGc();

    // The file that "Ok" writes: the text of the field OutputPath.
    void setOutputPath(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void convertAtSlider();
    void takeTypedQuality(const QString& text);
    void accept();
    void cancel();
    [[nodiscard]] int quality() const;

    QSlider* m_slider = nullptr;
    QLineEdit* m_qualitys = nullptr;
    QLineEdit* m_outputPath = nullptr;
    // Shared with the handler that runs a conversion, which may see the window go meanwhile.
    std::shared_ptr<platform::JpegPreview> m_preview;
};
