#include "publishing/printing/contact_sheet_window.h"

#include "core/printing.h"
#include "core/window_names.h"
#include "platform/devices/printed_paper.h"
#include "publishing/printing/contact_sheets.h"
#include "publishing/printing/sheet_layout.h"
#include "thumbs/frame_layout.h"
#include "thumbs/pane_thumbnails.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/form_builder.h"
#include "widgets/window_parts.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>
#include <array>
#include <utility>

namespace printing {

namespace {

using platform::kNamedPapers;
using platform::PaperOrientation;

// On a smaller sheet of A4 five pictures wouldn't stand beside each other.
constexpr QSize kPreview(470, 600); // pixels
constexpr int kChoicesWidth = 230;
constexpr int kMostColumns = 20;
constexpr int kSmallestZoom = 10; // percent
constexpr int kLargestZoom = 200;
constexpr int kEnglish = 0;
constexpr base::Colour kBarText = 0xE0E0E0;

// The pane lists films, sound, pages of the web and libraries as well, which have no picture.
const QString kPictures = QStringLiteral("*.lbm;*.bbm;*.iff;*.pcx;*.tif;*.tga;*.psd;*.bmp;*.emf;"
                                         "*.gif;*.ico;*.cur;*.jpg;*.jpeg;*.jif;*.wmf");

struct OrientationRow {
    const char* caption;
    PaperOrientation orientation;
};
constexpr std::array kOrientations{
    OrientationRow{"Portrait", PaperOrientation::Portrait},
    OrientationRow{"Landscape", PaperOrientation::Landscape},
};

template<typename Rows> QComboBox* comboOf(const Rows& rows)
{
    auto* combo = new QComboBox;
    for (const auto& row : rows) {
        combo->addItem(QString::fromLatin1(row.caption));
    }
    return combo;
}

QSpinBox* spinBox(int lowest, int highest, int value)
{
    auto* spin = new QSpinBox;
    spin->setRange(lowest, highest);
    spin->setValue(value);
    spin->setKeyboardTracking(false);
    return spin;
}

QString counted(int count, const char* one, const char* several)
{
    return QString::number(count) + QLatin1Char(' ') +
           QLatin1StringView(count == 1 ? one : several);
}

} // namespace

ContactSheetWindow::ContactSheetWindow()
    : StripWindow(QStringLiteral("Contact Sheets"))
{
    setObjectName(core::windowName(core::Window::ContactSheets));
    widgets::FormBuilder form(*this);
    widgets::FormBuilder row = form.addRow(1);
    buildPreview(row);
    widgets::FormBuilder column = row.addColumn();
    buildChoices(column);
    // Return takes over what was typed into a number, and paper is dear.
    form.addButtons({{"cmdPrint", "&Print", [this] { start(Run::Print); }},
                     {"cmdCancel", "&Close", [this] { cancel(); }, widgets::PressedBy::Escape}});
    m_print = findChild<QPushButton*>("cmdPrint");
    m_cancel = findChild<QPushButton*>("cmdCancel");
    fillPrinters();
    m_printer->setFocus();
}

// The list has a box of its own around it, which takes the caption that a run leaves.
void ContactSheetWindow::buildPreview(widgets::FormBuilder& form)
{
    auto* frame = form.add(new QFrame, "previewFrame", "Preview");
    frame->setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    m_list = new ThumbNailList(frame); // the frame owns it
    m_list->setObjectName("sheets");
    m_list->setAccessibleName("Sheets");
    m_list->setFixedSize(kPreview);
    m_list->setLanguage(kEnglish);
    m_list->setInfoBackColor(m_list->ThumbPage_FrameColor());
    m_list->setInfoForeColor(kBarText);
    m_list->setPrintLayout([this, alive = QPointer(this)](ThumbNailList& list) {
        const bool isWhole = makeSheetsForPaper(list);
        if (alive != nullptr) {
            m_isWhole = isWhole;
        }
    });
    layout->addWidget(m_list);
    m_list->surface().V_Scroll.setFocusPolicy(Qt::TabFocus);
    m_list->surface().File1.setPattern(kPictures);
    if (ThumbNailList* pane = thumbs::paneThumbnails()) {
        m_list->setPathFrom(pane->surface().File1);
    }
}

void ContactSheetWindow::buildChoices(widgets::FormBuilder& form)
{
    m_printer = form.addCaptioned(new QLabel("Pr&inter:"), new QComboBox, "cmbPrinter", "Printer");
    m_printer->setFixedWidth(kChoicesWidth);
    m_paper = form.addCaptioned(new QLabel("Pap&er:"), comboOf(kNamedPapers), "cmbPaper", "Paper");
    m_paper->setCurrentIndex(static_cast<int>(platform::kA4));
    m_orientation = form.addCaptioned(new QLabel("&Orientation:"), comboOf(kOrientations),
                                      "cmbOrientation", "Orientation");
    m_columns = form.addCaptioned(new QLabel("Pictures &across:"),
                                  spinBox(1, kMostColumns, m_list->Print_NrThumbCols()),
                                  "spnColumns", "Pictures across");
    m_zoom = form.addCaptioned(new QLabel("&Zoom:"), spinBox(kSmallestZoom, kLargestZoom, 100),
                               "spnZoom", "Zoom");
    m_zoom->setSuffix(QStringLiteral(" %"));
    m_zoom->setSingleStep(10);
    m_counts = form.add(new QLabel, "lblCounts");
    m_counts->setWordWrap(true);
    form.addStretch();
    for (QComboBox* combo : {m_printer, m_paper, m_orientation}) {
        widgets::nameDropDown(*combo, combo->accessibleName());
    }
    connect(m_printer, &QComboBox::activated, this, &ContactSheetWindow::choosePrinter);
    connect(m_paper, &QComboBox::activated, this, &ContactSheetWindow::changePaper);
    connect(m_orientation, &QComboBox::activated, this, &ContactSheetWindow::changePaper);
    connect(m_columns, &QSpinBox::valueChanged, this, &ContactSheetWindow::preview);
    connect(m_zoom, &QSpinBox::valueChanged, this, &ContactSheetWindow::preview);
}

void ContactSheetWindow::fillPrinters()
{
    m_printer->clear();
    for (const platform::PrinterFacts& printer : core::printerChoices()) {
        m_printer->addItem(printer.name);
    }
    if (const platform::Printer* current = core::currentPrinter()) {
        m_printer->setCurrentText(current->name());
    }
}

// One that has gone meanwhile leaves the list.
void ContactSheetWindow::choosePrinter()
{
    if (!core::selectPrinter(m_printer->currentText())) {
        fillPrinters();
    }
    changePaper();
}

void ContactSheetWindow::changePaper()
{
    showWholeSheet();
    preview();
}

void ContactSheetWindow::setPaper()
{
    if (platform::Printer* printer = core::currentPrinter()) {
        printer->setPaper(kNamedPapers.at(static_cast<std::size_t>(m_paper->currentIndex())).paper);
        printer->setOrientation(
            kOrientations.at(static_cast<std::size_t>(m_orientation->currentIndex())).orientation);
    }
}

void ContactSheetWindow::showWholeSheet()
{
    setPaper();
    const QSignalBlocker quiet(m_zoom);
    m_zoom->setValue(wholeSheetZoom(pageSize(), m_list->surface().viewportSize()));
}

// Of a sheet before zooming.
QSize ContactSheetWindow::pageSize() const
{
    const int height = m_list->surface().viewportSize().height() - 2 * thumbs::kSheetMargin;
    platform::Printer* printer = core::currentPrinter();
    const platform::PaperMetrics paper =
        printer != nullptr ? printer->metrics() : platform::PaperMetrics();
    return {sheetWidth(height, paper).value_or(height), height};
}

SheetLayout ContactSheetWindow::paperLayout() const
{
    return layOutPaper(pageSize(), m_columns->value());
}

void ContactSheetWindow::showEvent(QShowEvent* event)
{
    StripWindow::showEvent(event);
    showWholeSheet();
    QTimer::singleShot(0, this, &ContactSheetWindow::preview);
}

void ContactSheetWindow::closeEvent(QCloseEvent* event)
{
    m_next = Run::None;
    m_list->stopRunningLoop();
    StripWindow::closeEvent(event);
}

// Runs let events run. What is asked for in one stops it and comes behind it, so that none nests.
void ContactSheetWindow::start(Run run)
{
    m_next = run;
    if (m_running != Run::None) {
        m_list->stopRunningLoop();
        return;
    }
    const QPointer<ContactSheetWindow> alive = this;
    while (alive != nullptr && m_next != Run::None) {
        runOnce(std::exchange(m_next, Run::None));
    }
}

void ContactSheetWindow::runOnce(Run run)
{
    const QPointer<ContactSheetWindow> alive = this;
    m_isWhole = false;
    enter(run);
    setPaper();
    m_list->setPrint_NrThumbCols(static_cast<std::int16_t>(m_columns->value()));
    // The zoom begins the run, of a print too: its sheets are those that were shown.
    m_list->surface().state.IsPrinting = run == Run::Print;
    m_list->setPrint_Zoomfactor(m_zoom->value());
    if (alive == nullptr) {
        return;
    }
    enter(Run::None);
    m_list->surface().setInfoText({});
    showCounts();
    if (run == Run::Print && m_isWhole) {
        close();
    }
}

// Nothing is changed while it prints; the button that closes cancels then.
void ContactSheetWindow::enter(Run run)
{
    m_running = run;
    const bool prints = run == Run::Print;
    for (QWidget* choice :
         std::initializer_list<QWidget*>{m_printer, m_paper, m_orientation, m_columns, m_zoom}) {
        choice->setEnabled(!prints);
    }
    m_print->setEnabled(!prints && m_list->surface().File1.count() > 0 && m_printer->count() > 0 &&
                        holdsPictures(paperLayout()));
    m_cancel->setText(prints ? QStringLiteral("&Cancel") : QStringLiteral("&Close"));
    m_cancel->setAccessibleName(m_cancel->text().remove(QLatin1Char('&')));
}

void ContactSheetWindow::cancel()
{
    if (m_running == Run::Print) {
        m_list->stopRunningLoop();
    } else {
        close();
    }
}

// A screen reader says the name in place of the text.
void ContactSheetWindow::showCounts()
{
    m_counts->setText(counts());
    m_counts->setAccessibleName(m_counts->text());
}

QString ContactSheetWindow::counts() const
{
    const int files = m_list->surface().File1.count();
    if (files == 0) {
        return QStringLiteral("There are no pictures in this folder.");
    }
    const SheetLayout sheet = paperLayout();
    if (!holdsPictures(sheet)) {
        return QStringLiteral("The paper has no room for so many pictures across.");
    }
    return QStringLiteral("%1 on %2, with %3 across and %4 down.")
        .arg(counted(files, "picture", "pictures"))
        .arg(counted(m_list->surface().pages.pages(), "sheet", "sheets"))
        .arg(sheet.columns)
        .arg(sheet.rows);
}

} // namespace printing
