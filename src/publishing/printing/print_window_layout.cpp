// How the print window is laid out, and what its controls do.

#include "core/settings.h"
#include "publishing/printing/print_picture.h"
#include "publishing/printing/print_window.h"
#include "publishing/printing/print_window_preview.h"
#include "widgets/colour_swatch.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"
#include "widgets/window_parts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using widgets::FormBuilder;

namespace {

constexpr int kChoiceWidth = 250; // pixels
constexpr int kMarginWidth = 52;
constexpr QSize kSwatchSize{64, 26};

QComboBox* addChoice(FormBuilder& form, const char* caption, const char* name,
                     const char* spokenName)
{
    auto* box = form.addCaptioned(new QLabel(QString::fromLatin1(caption)), new QComboBox, name,
                                  spokenName);
    widgets::nameDropDown(*box, QString::fromLatin1(spokenName));
    // A long name is cut rather than the window made wide.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

QLineEdit* addNumber(FormBuilder& form, const char* caption, const char* name,
                     const char* spokenName)
{
    return form.addCaptioned(new QLabel(QString::fromLatin1(caption)), new widgets::FocusField,
                             name, spokenName);
}

AASelectColor* addSwatch(FormBuilder& row, const char* caption, const char* name,
                         const char* spokenName)
{
    auto* label = row.add(new QLabel(QString::fromLatin1(caption)), "");
    auto* swatch = row.add(new AASelectColor, name, spokenName);
    swatch->setToolTip(swatch->accessibleName());
    swatch->setFixedSize(kSwatchSize);
    label->setBuddy(swatch);
    return swatch;
}

} // namespace

void frmTemp::buildControls()
{
    FormBuilder form(*this);
    FormBuilder row = form.addRow(1);
    FormBuilder column = row.addColumn();
    addPicture(column);
    addPaper(column);
    addOrientation(column);
    addPlace(column);
    addColours(column);
    addMargins(column);
    column.addStretch();
    addPreview(row.addColumn(1));
    m_printButton =
        form.addButtons({{"cmdPrint", "&Print", [this] { print(); }, widgets::PressedBy::Return},
                         {"cmdExit", "E&xit", [this] { close(); }, widgets::PressedBy::Escape}});
    m_printer->setFocus();
}

void frmTemp::addPicture(FormBuilder& column)
{
    FormBuilder row = column.addRow();
    m_fileName = row.add(new QLineEdit, "txtFileName", "File of the picture", 1);
    m_fileName->setReadOnly(true);
    m_fileName->setFocusPolicy(Qt::ClickFocus);
    m_fileName->setPlaceholderText("The picture in the viewer");
    auto* open = row.add(new QPushButton("&Open..."), "cmdOpen");
    connect(open, &QPushButton::clicked, this, &frmTemp::openPicture);
}

void frmTemp::addPaper(FormBuilder& column)
{
    m_printer = addChoice(column, "Pr&inter:", "cmbPrinter", "Printer");
    m_printer->setMinimumWidth(kChoiceWidth);
    m_printer->setPlaceholderText("Choose a printer");
    m_paperSize = addChoice(column, "Paper si&ze:", "cmbPaperSize", "Paper size");
    m_width = addNumber(column, "&Width (mm):", "txtWidth", "Paper width in millimetres");
    m_height = addNumber(column, "&Height (mm):", "txtHeight", "Paper height in millimetres");
    m_align = addChoice(column, "&Alignment:", "cmbAlign", "Alignment of the picture");
    m_copies = addNumber(column, "&Copies:", "txtCopies", "Number of copies");
    m_width->installEventFilter(this);
    m_height->installEventFilter(this);
}

void frmTemp::addOrientation(FormBuilder& column)
{
    FormBuilder row = column.addRow();
    m_portrait = row.add(new QRadioButton("Po&rtrait"), "Command1");
    auto* landscape = row.add(new QRadioButton("&Landscape"), "Command2");
    row.addStretch();
    connect(m_portrait, &QRadioButton::clicked, this, [this] { turn(false); });
    connect(landscape, &QRadioButton::clicked, this, [this] { turn(true); });
}

void frmTemp::addPlace(FormBuilder& column)
{
    m_shrink = column.add(new QCheckBox("Shri&nk a large picture to the page"), "chkShrink");
    m_stretch = column.add(new QCheckBox("&Stretch over the whole page"), "chkStretch");
}

void frmTemp::addColours(FormBuilder& column)
{
    m_showBorder = column.add(new QCheckBox("&Border around the picture"), "chkShowBorder");
    FormBuilder row = column.addRow();
    m_backColor = addSwatch(row, "Pa&ge:", "AASelectColor1", "Colour of the page");
    row.addStretch();
    m_borderColor = addSwatch(row, "Bor&der:", "AASelectColor2", "Colour of the border");
}

void frmTemp::addMargins(FormBuilder& column)
{
    struct Side {
        const char* caption;
        const char* name;
        const char* spokenName;
    };
    static constexpr Side kSideRows[kSides] = {
        {"Left", "txtLeft", "Left margin"},
        {"Top", "txtTop", "Top margin"},
        {"Right", "txtRight", "Right margin"},
        {"Bottom", "txtBottom", "Bottom margin"},
    };
    column.addText("Margins of the printer, in its own pixels:");
    FormBuilder row = column.addRow();
    for (std::size_t side = 0; side < kSides; ++side) {
        row.addText(QString::fromLatin1(kSideRows[side].caption));
        m_margins[side] = row.add(new QLineEdit, kSideRows[side].name, kSideRows[side].spokenName);
        m_margins[side]->setReadOnly(true);
        m_margins[side]->setFixedWidth(kMarginWidth);
        m_margins[side]->setFocusPolicy(Qt::ClickFocus);
    }
}

void frmTemp::addPreview(FormBuilder column)
{
    m_page = column.add(new printing::PagePane, "frmPreview", "", 1);
    m_preview = column.add(new QCheckBox("Pre&view"), "chkPreview");
}

void frmTemp::connectChanges()
{
    connect(m_print, &AAPrintPicture::MarginsMeasured, this, &frmTemp::showMargins);
    connect(m_printer, &QComboBox::currentIndexChanged, this, &frmTemp::choosePrinter);
    connect(m_paperSize, &QComboBox::currentIndexChanged, this, &frmTemp::choosePaper);
    connect(m_align, &QComboBox::currentIndexChanged, this, [this](int align) {
        m_print->setAlign(align);
        GeneratePreview();
    });
    connect(m_shrink, &QCheckBox::toggled, this, [this](bool shrinks) {
        m_print->setShrinksToFit(shrinks);
        GeneratePreview();
    });
    connect(m_stretch, &QCheckBox::toggled, this, &frmTemp::setStretch);
    connect(m_showBorder, &QCheckBox::toggled, this, [this](bool shown) {
        m_print->setShowBorder(shown);
        GeneratePreview();
    });
    connect(m_backColor, &AASelectColor::Changed, this, [this] {
        m_print->setBackColor(m_backColor->Color());
        GeneratePreview();
    });
    connect(m_borderColor, &AASelectColor::Changed, this, [this] {
        m_print->setBorderColor(m_borderColor->Color());
        GeneratePreview();
    });
    connect(m_preview, &QCheckBox::toggled, this, [this] {
        m_page->setPage({});
        GeneratePreview();
    });
}

// What was typed counts when a field is left, too, and the field then tells what counts.
void frmTemp::connectFields()
{
    connect(m_copies, &QLineEdit::textChanged, this, &frmTemp::takeCopies);
    if (core::setting(core::kClassic)) {
        return;
    }
    for (QLineEdit* field : {m_width, m_height}) {
        connect(field, &QLineEdit::editingFinished, this, [this, field] {
            takePaperSize(field);
            showPaperSize();
        });
    }
    connect(m_copies, &QLineEdit::editingFinished, this,
            [this] { m_copies->setText(QString::number(m_print->Copies())); });
}
