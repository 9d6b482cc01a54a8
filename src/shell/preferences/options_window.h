#pragma once

#include "widgets/strip_window.h"

#include <memory>

class AASelectColor;
class QButtonGroup;
class QLabel;
class QLineEdit;
class QSlider;
class QStackedWidget;

namespace preferences {
class ThumbnailChoice;
}
namespace widgets {
class FormBuilder;
}

// The settings, on four pages that the buttons at the left bring forward. Size and colours of the
// thumbnails act as they are moved, Clear and Reset when they are pressed, and all else is written
// by Save alone.
class OptionsForm : public widgets::StripWindow {
    Q_OBJECT

public:
    OptionsForm();
    ~OptionsForm() override;

private:
    struct PageRow;
    struct LabelledSlider {
        QSlider* slider = nullptr;
        QLabel* value = nullptr; // the text beside it
    };

    void buildControls();
    void buildPages(widgets::FormBuilder& row, widgets::FormBuilder column);
    void buildToolbarPage(widgets::FormBuilder page);
    void buildInterfacePage(widgets::FormBuilder page);
    void buildEditorPage(widgets::FormBuilder page);
    void buildBrowserPage(widgets::FormBuilder page);
    void addLooks(widgets::FormBuilder column);
    static LabelledSlider addSlider(widgets::FormBuilder& page, const QString& caption,
                                    const char* name, const char* spokenName);
    void addStartFolder(widgets::FormBuilder& page);

    void load();
    void loadThumbnails();
    void connectChanges();

    [[nodiscard]] bool isOwnLook() const;
    void showLook();
    void showRecentPaths();
    void showSize();
    void showColours();

    void takeSize(int pixels);
    void takeColours(int entry);
    void applySoon();
    void clearRecentPaths();
    void resetViewerColour();
    void browse();
    void save();

    QStackedWidget* m_pages = nullptr;
    QLabel* m_recentPaths = nullptr;
    QButtonGroup* m_looks = nullptr;         // InterfaceOption by its entries
    QLabel* m_preview = nullptr;             // InterFace
    AASelectColor* m_titleColour = nullptr;  // AASelectColor2
    AASelectColor* m_viewerColour = nullptr; // AASelectColor1
    LabelledSlider m_thumSize;               // pixels
    LabelledSlider m_thumColor;              // entries
    QLineEdit* m_specifolder = nullptr;
    // Shared with what applies a choice, which may see the window go before and meanwhile.
    std::shared_ptr<preferences::ThumbnailChoice> m_thumbnails;
};
