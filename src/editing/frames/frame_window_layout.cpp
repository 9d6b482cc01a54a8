#include "core/help.h"
#include "editing/frames/frame_window.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/chameleon_button.h"
#include "widgets/colour_conversion.h"
#include "widgets/focus_ring.h"
#include "widgets/form_builder.h"
#include "widgets/slider.h"
#include "widgets/window_parts.h"

#include <QLabel>
#include <functional>

namespace {

constexpr int kThinnest = 5;
constexpr int kThickest = 35;
constexpr int kStyleSize = 80; // of the picture on a tile
constexpr QSize kStylesRoom(324, 404);
constexpr QSize kPreviewRoom(400, 330);
constexpr QSize kButtonSize(92, 30);
constexpr int kShadedType = 14;
constexpr int kColoursOfParent = 4;
constexpr int kLying = 0;

chameleonButton* makeButton(const char* caption)
{
    auto* button = new chameleonButton; // owned by the window that it is added to
    button->setCaption(QString::fromLatin1(caption));
    button->setButtonType(kShadedType);
    button->setColorScheme(kColoursOfParent);
    button->setFixedSize(kButtonSize);
    button->setFocusPolicy(Qt::StrongFocus);
    widgets::pressOnReturn(*button);
    return button;
}

// The page takes the colours of the window, light or dark.
void dressStyles(ThumbNailList& list)
{
    const QPalette& palette = list.palette();
    const auto colour = [&palette](QPalette::ColorRole role) {
        return widgets::fromQColor(palette.color(role));
    };
    list.setInfobarVisible(false);
    list.setThumbNailSize(kStyleSize);
    list.setThumbPage_FrameColor(colour(QPalette::Base));
    list.setThumbPageColor(colour(QPalette::Base));
    list.setThumbNailColor(colour(QPalette::Window));
    list.setThumbNailBorderColor(colour(QPalette::Mid));
    list.setThumbNailSelectColor(colour(QPalette::Highlight));
}

} // namespace

void FrmBord::buildControls()
{
    widgets::FormBuilder form(*this);
    widgets::FormBuilder row = form.addRow(1);
    addStyles(row);
    addPreview(row);
    addButtons(form);
}

void FrmBord::addStyles(widgets::FormBuilder& row)
{
    widgets::FormBuilder column = row.addColumn();
    m_list = column.add(new ThumbNailList(this), "ThumbNailList1", "Frames");
    m_list->setFixedSize(kStylesRoom);
    m_list->setFocusPolicy(Qt::StrongFocus);
    m_list->installEventFilter(this);
    new widgets::FocusRing(*m_list); // a child of the list
    dressStyles(*m_list);
    connect(m_list, &ThumbNailList::ThumbClick, this,
            [this](int /*index*/, const QString& path) { chooseStyle(path); });
    m_styleName = column.add(new QLabel("Choose a frame."), "lblStyle", "");
}

void FrmBord::addPreview(widgets::FormBuilder& row)
{
    widgets::FormBuilder column = row.addColumn();
    m_preview = column.add(new QLabel, "picRSetMode", "Preview");
    m_preview->setFixedSize(kPreviewRoom);
    m_preview->setAlignment(Qt::AlignCenter);
    addThickness(column);
    column.addStretch();
}

void FrmBord::addThickness(widgets::FormBuilder& column)
{
    widgets::FormBuilder row = column.addRow();
    auto* caption = row.add(new QLabel("&Thickness"), "lblThickness", "");
    m_frameChange = row.add(new cpvSlider, "FrameChange", "Thickness", 1);
    caption->setBuddy(m_frameChange);
    m_changeValue = row.add(new QLabel, "ChangeValue", "Thickness in pixels");
    m_changeValue->setMinimumWidth(
        m_changeValue->fontMetrics().horizontalAdvance(QString::number(kThickest)));
    m_redraw = row.add(makeButton("&Preview"), "chameleonButton2", "");
    connect(m_redraw, &QAbstractButton::clicked, this, &FrmBord::redraw);
}

void FrmBord::addButtons(widgets::FormBuilder& form)
{
    struct Row {
        const char* name;
        const char* caption;
        std::function<void()> press;
    };
    const Row rows[kButtons] = {{"Button_0", "&Apply", [this] { apply(); }},
                                {"Button_1", "&Cancel", [this] { close(); }},
                                {"Button_2", "&Help", [] { core::openHelp(); }}};
    widgets::FormBuilder line = form.addRow();
    line.addStretch();
    for (std::size_t i = 0; i < kButtons; ++i) {
        m_buttons[i] = line.add(makeButton(rows[i].caption), rows[i].name, "");
        connect(m_buttons[i], &QAbstractButton::clicked, this, rows[i].press);
    }
    m_buttons[0]->setEnabled(false);
    setKeyButtons(m_buttons[0], m_buttons[1]);
}

// The largest value comes first: the smallest one lifts the value in between.
void FrmBord::setUpSlider()
{
    m_frameChange->setOrientation(kLying);
    m_frameChange->setBackColor(widgets::fromQColor(palette().color(QPalette::Window)));
    connect(m_frameChange, &cpvSlider::ValueChanged, this, &FrmBord::changeThickness);
    static_cast<void>(m_frameChange->setMax(kThickest));
    static_cast<void>(m_frameChange->setMin(kThinnest));
    static_cast<void>(m_frameChange->setValue(kThickest));
}
