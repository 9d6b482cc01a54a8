#include "publishing/printing/print_window.h"

#include "base/numbers.h"
#include "core/constants.h"
#include "core/printing.h"
#include "core/settings.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "core/working_files.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/pictures/picture_loader.h"
#include "publishing/printing/print_picture.h"
#include "publishing/printing/print_window_preview.h"
#include "widgets/colour_swatch.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <optional>

using core::Window;
using platform::Picture;

namespace {

const QString kOpenTitle = QStringLiteral("Open Image File For Print");
const QString kOpenFilter = QStringLiteral("All Supported Images|*.gif;*.jpg;*.bmp");
const QString kNoPrinter = QStringLiteral("Please select Printer");

QString titleOf(const QString& path)
{
    return QFileInfo(path).completeBaseName();
}

bool isReturn(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

// The number in a field, nothing for a text that is none.
std::optional<std::int16_t> millimetresIn(const QLineEdit& field)
{
    const auto number = base::strictInteger(field.text().toStdString());
    return number ? base::narrow16(*number) : std::nullopt;
}

} // namespace

void printing::showPrintWindow(const Picture& picture)
{
    QWidget* const loaded = core::windows().load(Window::frmTemp);
    if (loaded == nullptr) {
        return;
    }
    const Picture taken =
        core::takenThrough(core::WorkingFile::Picture, picture, platform::OnFailure::Stop)
            .value_or(picture);
    if (auto* window = qobject_cast<frmTemp*>(loaded)) {
        window->setPicture(taken, titleOf(core::state().CurrentFile));
    }
    core::windows().show(Window::frmTemp, core::ShowMode::Modal);
}

frmTemp::frmTemp()
    : StripWindow(QStringLiteral("Print"))
    , m_print(new AAPrintPicture(this))
{
    setObjectName(core::windowName(Window::frmTemp));
    m_print->setObjectName("AAPrintPicture1");
    buildControls();
    load();
    connectChanges();
    connectFields();
    GeneratePreview();
}

void frmTemp::setPicture(const Picture& picture, const QString& title)
{
    m_print->setPicture(picture);
    m_print->setDocumentTitle(title);
    GeneratePreview();
}

void frmTemp::load()
{
    fillPrinters();
    for (const char* alignment : printing::kAlignments) {
        m_align->addItem(QString::fromLatin1(alignment));
    }
    m_align->setCurrentIndex(m_print->Align());
    for (const platform::PaperRow& paper : printing::kPapers) {
        m_paperSize->addItem(QString::fromLatin1(paper.caption));
    }
    m_paperSize->setCurrentIndex(m_print->PaperSize());
    showPaperSize();
    m_portrait->setChecked(true);
    m_showBorder->setChecked(m_print->ShowBorder());
    m_backColor->setColor(m_print->BackColor());
    m_borderColor->setColor(m_print->BorderColor());
    m_copies->setText(QString::number(m_print->Copies()));
    m_preview->setChecked(true);
    const bool mayShrink = !core::setting(core::kClassic);
    m_shrink->setVisible(mayShrink);
    m_shrink->setChecked(mayShrink);
    m_print->setShrinksToFit(mayShrink);
}

void frmTemp::fillPrinters()
{
    const auto choices = core::printerChoices();
    for (const platform::PrinterFacts& printer : choices) {
        m_printer->addItem(printer.name);
    }
    m_print->setDefultPrinter(core::presetPrinter(choices));
    m_printer->setCurrentIndex(
        m_printer->findText(m_print->DefultPrinter(), Qt::MatchExactly | Qt::MatchCaseSensitive));
    m_printButton->setEnabled(!choices.empty());
}

void frmTemp::choosePrinter()
{
    m_print->setDefultPrinter(m_printer->currentText());
    GeneratePreview();
}

void frmTemp::choosePaper()
{
    m_print->setPaperSize(m_paperSize->currentIndex());
    showPaperSize();
    GeneratePreview();
}

void frmTemp::showPaperSize()
{
    std::int16_t width = 0;
    std::int16_t height = 0;
    m_print->GetPaperWH(width, height);
    m_width->setText(QString::number(width));
    m_height->setText(QString::number(height));
    const bool isManual = m_print->PaperSize() == printing::kManualPaper;
    m_width->setEnabled(isManual);
    m_height->setEnabled(isManual);
}

// A text that is no number leaves the size that it should change. The fields also show the sizes of
// papers that have a name, and are left then.
void frmTemp::takePaperSize(const QObject* field)
{
    if (m_print->PaperSize() != printing::kManualPaper) {
        return;
    }
    if (field == m_width) {
        m_print->setPaperWidth(millimetresIn(*m_width).value_or(m_print->PaperWidth()));
    } else {
        m_print->setPaperHeight(millimetresIn(*m_height).value_or(m_print->PaperHeight()));
    }
    GeneratePreview();
}

void frmTemp::takeCopies()
{
    const auto copies = base::roundTo16(base::leadingNumber(m_copies->text().toStdString()));
    if (copies && *copies > 0) {
        m_print->setCopies(*copies);
    }
}

void frmTemp::turn(bool landscape)
{
    m_print->Hvprinter(landscape);
    GeneratePreview();
}

void frmTemp::setStretch(bool stretch)
{
    m_print->setStretch(stretch);
    m_align->setEnabled(!stretch);
    m_shrink->setEnabled(!stretch);
    GeneratePreview();
}

// Name and picture stay where the file can't be read.
void frmTemp::openPicture()
{
    platform::FileRequest request;
    request.title = kOpenTitle;
    request.filter = kOpenFilter;
    const QPointer<frmTemp> alive(this);
    const QStringList chosen = platform::dialogs().openFiles(request);
    if (alive == nullptr || chosen.isEmpty()) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (const auto picture = platform::loadPicture(chosen.first())) {
        m_fileName->setText(chosen.first());
        setPicture(*picture, titleOf(chosen.first()));
    }
}

void frmTemp::print()
{
    if (m_printer->currentIndex() < 0) {
        platform::dialogs().showMessage(kNoPrinter, core::kProgramName,
                                        platform::BoxIcon::Critical);
        return;
    }
    const platform::PointerGuard hourglass;
    m_print->PrintPicture();
}

void frmTemp::showMargins(int left, int top, int right, int bottom)
{
    const int margins[kSides] = {left, top, right, bottom};
    for (std::size_t side = 0; side < kSides; ++side) {
        m_margins[side]->setText(QString::number(margins[side]));
    }
}

void frmTemp::GeneratePreview()
{
    if (m_preview->isChecked()) {
        m_page->setPage(m_print->GetPreview());
    }
}

// Return in a field of the size takes the size and doesn't print.
bool frmTemp::eventFilter(QObject* watched, QEvent* event)
{
    if ((watched == m_width || watched == m_height) && isReturn(*event)) {
        takePaperSize(watched);
        return true;
    }
    return StripWindow::eventFilter(watched, event);
}
