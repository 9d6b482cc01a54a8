// How the settings window and its pages are laid out.

#include "core/help.h"
#include "core/thumbnail_entries.h"
#include "shell/preferences/options_window.h"
#include "shell/preferences/page_button.h"
#include "widgets/colour_swatch.h"
#include "widgets/form_builder.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStackedWidget>

using preferences::PageButton;
using widgets::FormBuilder;

namespace {

constexpr int kButtonsWidth = 132; // pixels
constexpr int kPageWidth = 400;
constexpr QMargins kPageMargins{16, 4, 4, 12};
constexpr QSize kPreviewSize{240, 160};
constexpr QSize kSwatchSize{96, 30};

constexpr int kLargestSize = core::kThumbnailSizes * core::kThumbnailSizeStep;
constexpr int kSizesAPage = 5; // what Page Up and Page Down go over
constexpr int kLastColours = static_cast<int>(core::kThumbnailColourNames.size()) - 1;

AASelectColor* addSwatch(FormBuilder& row, const QString& caption, const char* name,
                         const char* spokenName)
{
    auto* label = row.add(new QLabel(caption), "");
    auto* swatch = row.add(new AASelectColor, name, spokenName);
    swatch->setToolTip(swatch->accessibleName());
    label->setBuddy(swatch);
    swatch->setFixedSize(kSwatchSize);
    return swatch;
}

} // namespace

struct OptionsForm::PageRow {
    const char* button;
    const char* caption;
    const char* page;
    const char* heading;
    void (OptionsForm::*build)(FormBuilder page);
};

void OptionsForm::buildControls()
{
    FormBuilder form(*this);
    FormBuilder row = form.addRow(1);
    buildPages(row, row.addColumn());
    form.addButtons({{"chameleonButton2", "&Save", [this] { save(); }, widgets::PressedBy::Return},
                     {"Help", "&Help", [] { core::openHelp(); }},
                     {"Cancel", "&Cancel", [this] { close(); }, widgets::PressedBy::Escape}});
}

void OptionsForm::buildPages(FormBuilder& row, FormBuilder column)
{
    static constexpr PageRow kRows[] = {
        {"Toolbar", "&Toolbar", "FrmToolbar", "Toolbar", &OptionsForm::buildToolbarPage},
        {"UserInterface", "User &Interface", "FrmInterface", "User Interface",
         &OptionsForm::buildInterfacePage},
        {"Editor", "&Editor", "FrmEditor", "Editor", &OptionsForm::buildEditorPage},
        {"Browser", "&Browser", "FrmBrowser", "Browser", &OptionsForm::buildBrowserPage},
    };
    auto* buttons = new QButtonGroup(this);
    for (const PageRow& page : kRows) {
        auto* button = column.add(new PageButton(QString::fromLatin1(page.caption)), page.button);
        button->setMinimumWidth(kButtonsWidth);
        buttons->addButton(button, static_cast<int>(buttons->buttons().size()));
    }
    column.addStretch();
    m_pages = row.add(new QStackedWidget, "Pages", "Settings", 1);
    m_pages->setContentsMargins(kPageMargins);
    for (const PageRow& page : kRows) {
        FormBuilder form = row.addPage(*m_pages, page.page, page.heading);
        form.addHeading(QString::fromLatin1(page.heading));
        (this->*page.build)(form);
        form.addStretch();
    }
    connect(buttons, &QButtonGroup::idClicked, m_pages, &QStackedWidget::setCurrentIndex);
    buttons->button(0)->setChecked(true);
}

void OptionsForm::buildToolbarPage(FormBuilder page)
{
    page.addNote("The file name field offers the paths that you opened last.", kPageWidth);
    FormBuilder row = page.addRow();
    m_recentPaths = row.add(new QLabel, "RecentPaths");
    row.addStretch();
    auto* clear = row.add(new QPushButton("Clea&r"), "Command1");
    connect(clear, &QPushButton::clicked, this, &OptionsForm::clearRecentPaths);
    page.addNote("Clear forgets them at once.", kPageWidth);
}

void OptionsForm::buildInterfacePage(FormBuilder page)
{
    page.addNote("The title bars of the program's windows. Each window takes a new look when it "
                 "opens next.",
                 kPageWidth);
    FormBuilder row = page.addRow();
    addLooks(row.addColumn());
    row.addStretch();
    m_preview = row.add(new QLabel, "InterFace", "Preview of the look");
    m_preview->setFixedSize(kPreviewSize);
}

void OptionsForm::addLooks(FormBuilder column)
{
    m_looks = new QButtonGroup(this);
    m_looks->addButton(column.add(new QRadioButton("&Own look"), "InterfaceOption_1"), 1);
    m_looks->addButton(column.add(new QRadioButton("Standard &windows"), "InterfaceOption_0"), 0);
    FormBuilder row = column.addRow();
    m_titleColour = addSwatch(row, "Co&lour:", "AASelectColor2", "Colour of title bars");
    column.addStretch();
}

void OptionsForm::buildEditorPage(FormBuilder page)
{
    page.addNote("The colour around the picture in the viewer.", kPageWidth);
    FormBuilder row = page.addRow();
    m_viewerColour = addSwatch(row, "&Viewer colour:", "AASelectColor1", "Colour of the viewer");
    row.addStretch();
    auto* reset = row.add(new QPushButton("&Reset Colour"), "chameleonButton3");
    connect(reset, &QPushButton::clicked, this, &OptionsForm::resetViewerColour);
    page.addNote("Reset takes the stored colour back at once; the viewer follows when you save.",
                 kPageWidth);
}

void OptionsForm::buildBrowserPage(FormBuilder page)
{
    page.addNote("Size and colours change the thumbnails at once.", kPageWidth);
    m_thumSize = addSlider(page, "Thumbnail si&ze:", "ThumSize", "Thumbnail size");
    m_thumSize.slider->setRange(core::kThumbnailSizeStep, kLargestSize);
    m_thumSize.slider->setSingleStep(core::kThumbnailSizeStep);
    m_thumSize.slider->setPageStep(kSizesAPage * core::kThumbnailSizeStep);
    m_thumColor = addSlider(page, "Thumbnail colo&urs:", "ThumColor", "Thumbnail colours");
    m_thumColor.slider->setRange(0, kLastColours);
    m_thumColor.slider->setPageStep(1);
    addStartFolder(page);
}

OptionsForm::LabelledSlider OptionsForm::addSlider(FormBuilder& page, const QString& caption,
                                                   const char* name, const char* spokenName)
{
    FormBuilder column = page.addColumn();
    FormBuilder row = column.addRow();
    auto* label = row.add(new QLabel(caption), "");
    row.addStretch();
    auto* value = row.add(new QLabel, "");
    auto* slider = column.add(new QSlider(Qt::Horizontal), name, spokenName);
    label->setBuddy(slider);
    return {slider, value};
}

void OptionsForm::addStartFolder(FormBuilder& page)
{
    FormBuilder column = page.addColumn();
    auto* label = column.add(new QLabel("Start &folder:"), "");
    FormBuilder row = column.addRow();
    m_specifolder = row.addField("Specifolder", "Folder shown at start");
    m_specifolder->setPlaceholderText("Your picture folder");
    label->setBuddy(m_specifolder);
    auto* browse = row.add(new QPushButton("Bro&wse..."), "chameleonButton1");
    connect(browse, &QPushButton::clicked, this, &OptionsForm::browse);
}
