#pragma once

#include "editing/frames/frame_composer.h"
#include "platform/pictures/picture_box.h"
#include "widgets/strip_window.h"

#include <QString>
#include <array>
#include <cstdint>

class chameleonButton;
class cpvSlider;
class QLabel;
class ThumbNailList;

namespace widgets {
class FormBuilder;
}

// The frame composer: a page of styles, a slider for the thickness, a preview, and the frame on the
// viewer's picture. Opening it takes that picture through the working file of Undo, which
// afterwards holds the preview's picture and, once a frame was applied, the whole one as it was.
class FrmBord : public widgets::StripWindow {
    Q_OBJECT

public:
    FrmBord();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr std::size_t kButtons = 3;

    void buildControls();
    void addStyles(widgets::FormBuilder& row);
    void addPreview(widgets::FormBuilder& row);
    void addThickness(widgets::FormBuilder& column);
    void addButtons(widgets::FormBuilder& form);
    void setUpSlider();

    void takePicture();
    void makePreviewSource();
    void fillStyles();
    void chooseStyle(const QString& picturePath);
    void changeThickness();
    void redraw();
    void showPreview();
    void apply();
    void showResult();

    // The frame on the preview, and on the whole picture; false when it is to go no further.
    void DrawFramePreview(int thickness, const QString& style);
    [[nodiscard]] bool DrawFrameFinal(int thickness, const QString& style);

    ThumbNailList* m_list = nullptr; // ThumbNailList1
    QLabel* m_styleName = nullptr;
    QLabel* m_preview = nullptr; // shows picRSetMode
    cpvSlider* m_frameChange = nullptr;
    QLabel* m_changeValue = nullptr;
    chameleonButton* m_redraw = nullptr; // chameleonButton2
    std::array<chameleonButton*, kButtons> m_buttons{};

    double m_ratio = 1; // screen pixels to a unit of length in the preview
    bool m_stylesFilled = false;
    std::int16_t m_thickness = 0;
    QString m_style;
    platform::PictureBox m_picOriginal;
    platform::PictureBox m_picRSetMode;
    platform::PictureBox m_screenPicOri;
    platform::PictureBox m_screenPicObj;
};
