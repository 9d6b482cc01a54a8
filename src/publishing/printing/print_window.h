#pragma once

#include "platform/pictures/picture.h"
#include "widgets/strip_window.h"

#include <QString>
#include <array>

class AAPrintPicture;
class AASelectColor;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace widgets {
class FormBuilder;
}

namespace printing {

class PagePane;

// Shows frmTemp modally for the picture, which it takes through its working file; the picture
// itself where that can't be written.
void showPrintWindow(const platform::Picture& picture);

} // namespace printing

// Prints one picture: where, on which paper and how it lies there, with the page beside it.
class frmTemp : public widgets::StripWindow {
    Q_OBJECT

public:
    frmTemp();

    // What is printed, and by which name.
    void setPicture(const platform::Picture& picture, const QString& title);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr std::size_t kSides = 4;

    void buildControls();
    void addPicture(widgets::FormBuilder& column);
    void addPaper(widgets::FormBuilder& column);
    void addOrientation(widgets::FormBuilder& column);
    void addPlace(widgets::FormBuilder& column);
    void addColours(widgets::FormBuilder& column);
    void addMargins(widgets::FormBuilder& column);
    void addPreview(widgets::FormBuilder column);

    void load();
    void fillPrinters();
    void connectChanges();
    void connectFields();

    void choosePrinter();
    void choosePaper();
    void showPaperSize();
    void takePaperSize(const QObject* field); // m_width or m_height, alone
    void takeCopies();
    void turn(bool landscape);
    void setStretch(bool stretch);
    void openPicture();
    void print();
    void showMargins(int left, int top, int right, int bottom);
    void GeneratePreview();

    AAPrintPicture* m_print = nullptr; // a child
    QLineEdit* m_fileName = nullptr;
    QComboBox* m_printer = nullptr;
    QComboBox* m_paperSize = nullptr;
    QLineEdit* m_width = nullptr; // millimetres
    QLineEdit* m_height = nullptr;
    QRadioButton* m_portrait = nullptr; // Command1
    QComboBox* m_align = nullptr;
    QCheckBox* m_shrink = nullptr; // seen outside classic mode
    QCheckBox* m_stretch = nullptr;
    QCheckBox* m_showBorder = nullptr;
    AASelectColor* m_backColor = nullptr;   // AASelectColor1
    AASelectColor* m_borderColor = nullptr; // AASelectColor2
    QLineEdit* m_copies = nullptr;
    std::array<QLineEdit*, kSides> m_margins{}; // left, top, right, bottom
    QCheckBox* m_preview = nullptr;
    printing::PagePane* m_page = nullptr;
    QPushButton* m_printButton = nullptr;
};
