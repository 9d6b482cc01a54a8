#pragma once

#include "publishing/printing/sheet_layout.h"
#include "widgets/strip_window.h"

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class ThumbNailList;

namespace printing {

// Lays the pictures of the pane's folder out on sheets for paper and prints them. What it shows is
// what is printed.
class ContactSheetWindow : public widgets::StripWindow {
    Q_OBJECT

public:
    ContactSheetWindow();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    enum class Run { None, Preview, Print };

    void buildPreview(widgets::FormBuilder& form);
    void buildChoices(widgets::FormBuilder& form);
    void fillPrinters();
    void choosePrinter();
    void setPaper();
    void changePaper();
    void showWholeSheet();
    void preview() { start(Run::Preview); }
    void start(Run run);
    void runOnce(Run run);
    void enter(Run run);
    void cancel();
    void showCounts();
    [[nodiscard]] QString counts() const;
    [[nodiscard]] QSize pageSize() const;
    [[nodiscard]] SheetLayout paperLayout() const;

    Run m_running = Run::None;
    Run m_next = Run::None; // asked for while one is under way
    bool m_isWhole = false; // the last run has come to its end

    ThumbNailList* m_list = nullptr; // children
    QComboBox* m_printer = nullptr;
    QComboBox* m_paper = nullptr;
    QComboBox* m_orientation = nullptr;
    QSpinBox* m_columns = nullptr;
    QSpinBox* m_zoom = nullptr;
    QLabel* m_counts = nullptr;
    QPushButton* m_print = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace printing
