#include "platform/os/paths.h"
#include "publishing/mail/html_editor.h"
#include "publishing/mail/mail_window.h"
#include "widgets/bevel.h"
#include "widgets/chameleon_button.h"
#include "widgets/elided_label.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"
#include "widgets/title_strip.h"
#include "widgets/window_parts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QShortcut>
#include <QSizeGrip>

using mail::HtmlEditor;

namespace {

constexpr int kColoursOfParent = 4;
constexpr int kRaised = 2;
constexpr int kSunk = 0;
constexpr int kToolHeight = 32; // pixels
constexpr int kToolRoom = 50;   // beside a caption
constexpr int kFormatSide = 28;
constexpr int kGroupGap = 10;
constexpr int kPanelMargin = 10;
constexpr QSize kEditorRoom(440, 160);

struct ToolRow {
    const char* caption;
    const char* picture;
    const char* tip;
    bool gapBefore;
};

constexpr std::array<ToolRow, frmMailSender::kButtons> kTools{{
    {"Send", "send", "Send (Ctrl+Return)", false},
    {"Open", "open", "Open a mail document (Ctrl+O)", false},
    {"Save", "save", "Save as a mail document (Ctrl+S)", false},
    {"", "cut", "Cut", true},
    {"", "copy", "Copy", false},
    {"", "paste", "Paste", false},
    {"", "preferences", "Mail setup", true},
}};

struct FormatRow {
    int index; // on Toolbar2, where the gaps count
    int command;
    const char* picture;
    const char* tip;
    bool gapBefore;
    bool switches;
};

constexpr std::array kFormats{
    FormatRow{2, mail::DECMD_BOLD, "bold", "Bold (Ctrl+B)", false, true},
    FormatRow{3, mail::DECMD_ITALIC, "italic", "Italic (Ctrl+I)", false, true},
    FormatRow{4, mail::DECMD_UNDERLINE, "underline", "Underline (Ctrl+U)", false, true},
    FormatRow{6, mail::DECMD_JUSTIFYLEFT, "alignleft", "Align left (Ctrl+L)", true, true},
    FormatRow{7, mail::DECMD_JUSTIFYCENTER, "aligncentre", "Centre (Ctrl+E)", false, true},
    FormatRow{8, mail::DECMD_JUSTIFYRIGHT, "alignright", "Align right (Ctrl+R)", false, true},
    FormatRow{10, mail::DECMD_FONT, "font", "Font", true, false},
    FormatRow{11, mail::DECMD_IMAGE, "picture", "Insert a picture", false, false},
    FormatRow{12, mail::DECMD_HYPERLINK, "link", "Link (Ctrl+K)", false, false},
};

struct FieldRow {
    const char* caption;
    const char* spokenName;
};

constexpr std::array<FieldRow, frmMailSender::kFields> kFieldRows{{
    {"To :", "To"},
    {"From :", "From"},
    {"&Subject :", "Subject"},
}};

constexpr std::array kStatusPictures{"mailidle", "mailbusy"};

QString numbered(const char* name, int index)
{
    return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index);
}

chameleonButton* makeTool(const ToolRow& row)
{
    auto* button = new chameleonButton; // owned by the window that it is added to
    widgets::dressToolButton(*button, row.picture, row.tip);
    button->setColorScheme(kColoursOfParent);
    button->setUseMaskColor(false);
    const QString caption = QString::fromLatin1(row.caption);
    button->setCaption(caption);
    if (caption.isEmpty()) {
        button->setFixedSize(kToolHeight, kToolHeight);
    } else {
        button->setAccessibleName(caption);
        button->setFixedSize(kToolRoom + button->fontMetrics().horizontalAdvance(caption),
                             kToolHeight);
    }
    return button;
}

chameleonButton* makeFormat(const FormatRow& row)
{
    auto* button = new chameleonButton;
    widgets::dressToolButton(*button, row.picture, row.tip);
    button->setColorScheme(kColoursOfParent);
    button->setUseMaskColor(false);
    button->setCheckBoxBehaviour(row.switches);
    button->setFixedSize(kFormatSide, kFormatSide);
    return button;
}

// A part with a frame over its rim.
QGridLayout* framed(QWidget& part, Bevel& frame)
{
    auto* place = new QGridLayout;
    place->setContentsMargins(0, 0, 0, 0);
    place->addWidget(&part, 0, 0);
    place->addWidget(&frame, 0, 0);
    frame.raise();
    return place;
}

QPixmap statusPicture(const char* name, double ratio)
{
    const auto picture = widgets::ScaledPicture::fromFile(
        platform::appFile(QStringLiteral("Images/toolbar/%1.png").arg(QLatin1String(name))));
    return QPixmap::fromImage(picture.forRatio(ratio));
}

} // namespace

void frmMailSender::buildControls()
{
    strip().setObjectName(QStringLiteral("Picture8"));
    widgets::FormBuilder form(*this);
    addToolbar(form);
    addFields(form);
    addFormatting(form);
    addStatus(form);
    addKeys();
}

void frmMailSender::addToolbar(widgets::FormBuilder& form)
{
    auto* bar = form.add(new QWidget, "picbar", "Mail commands");
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (int index = 0; index < kButtons; ++index) {
        const ToolRow& tool = kTools.at(static_cast<std::size_t>(index));
        chameleonButton* button = makeTool(tool);
        row->addSpacing(tool.gapBefore ? kGroupGap : 0);
        row->addWidget(button);
        button->setObjectName(numbered("Toolbar1_Button", index));
        connect(button, &QAbstractButton::clicked, this, [this, index] { pressButton(index); });
        m_toolbar.at(static_cast<std::size_t>(index)) = button;
    }
    row->addStretch();
}

void frmMailSender::addFields(widgets::FormBuilder& form)
{
    auto* panel = form.own(new QWidget, "Fields", "Addresses and subject");
    auto* lines = new QGridLayout(panel);
    lines->setContentsMargins(kPanelMargin, kPanelMargin, kPanelMargin, kPanelMargin);
    for (int index = 0; index < kFields; ++index) {
        const auto place = static_cast<std::size_t>(index);
        const FieldRow& row = kFieldRows.at(place);
        auto* field = form.own(new widgets::FocusField,
                               numbered("txtMail", index).toLatin1().constData(), row.spokenName);
        auto* label = form.own(new QLabel(QString::fromLatin1(row.caption)),
                               numbered("Label1", index).toLatin1().constData(), row.spokenName);
        label->setBuddy(field);
        lines->addWidget(label, index, 0);
        lines->addWidget(field, index, 1);
        field->installEventFilter(this);
        m_txtMail.at(place) = field;
    }
    m_attach = form.own(new QCheckBox, "chkAttach", "Attach the picture");
    lines->addWidget(m_attach, kFields, 1);
    auto* frame = form.own(new Bevel, "Bevel1");
    frame->setBevelSytle(kRaised);
    content().addLayout(framed(*panel, *frame));
}

void frmMailSender::addFormatting(widgets::FormBuilder& form)
{
    auto* bar = form.add(new QWidget, "Toolbar2", "Formatting");
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_editor = form.own(new HtmlEditor, "DHTML", "Message");
    m_editor->setFrameShape(QFrame::NoFrame);
    m_editor->setMinimumSize(kEditorRoom);
    for (const FormatRow& format : kFormats) {
        chameleonButton* button = makeFormat(format);
        row->addSpacing(format.gapBefore ? kGroupGap : 0);
        row->addWidget(button);
        button->setObjectName(numbered("Toolbar2", format.index));
        connect(button, &QAbstractButton::clicked, m_editor, [this, &format] {
            m_editor->setFocus();
            m_editor->ExecCommand(format.command);
        });
        if (format.switches) {
            const auto follow = [this, button, &format] {
                button->setValue(m_editor->isCommandOn(format.command));
            };
            connect(m_editor, &HtmlEditor::stateChanged, button, follow);
            follow();
        }
    }
    row->addStretch();
    auto* frame = form.own(new Bevel, "Bevel3");
    frame->setBevelSytle(kSunk);
    content().addLayout(framed(*m_editor, *frame), 1);
    connect(m_editor, &HtmlEditor::focused, this, [this] { m_activeField = kFields; });
    setTabOrder(m_txtMail.back(), m_attach);
    setTabOrder(m_attach, m_editor); // not by way of the buttons
}

void frmMailSender::addStatus(widgets::FormBuilder& form)
{
    auto* strip = form.add(new QFrame, "picstatus", "Status");
    strip->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(kPanelMargin / 2, 2, 0, 0);
    for (std::size_t index = 0; index < m_image1.size(); ++index) {
        QLabel* picture =
            form.own(new QLabel, numbered("Image1", int(index)).toLatin1().constData(),
                     index == 0 ? "Idle" : "Sending");
        picture->setPixmap(statusPicture(kStatusPictures.at(index), devicePixelRatioF()));
        picture->hide();
        m_image1.at(index) = picture;
    }
    m_imgstatus = form.own(new QLabel, "imgstatus", "Activity");
    m_lblStatus =
        form.own(new widgets::ElidedLabel(QString()), "lblStatus", "State of the sending");
    auto* grip = form.own(new QSizeGrip(strip), "grip", "Size of the window");
    row->addWidget(m_imgstatus);
    row->addWidget(m_lblStatus, 1);
    row->addWidget(grip, 0, Qt::AlignBottom);
    showBusy(false);
}

void frmMailSender::addKeys()
{
    const std::pair<QKeySequence, int> keys[] = {{Qt::CTRL | Qt::Key_Return, 0},
                                                 {Qt::CTRL | Qt::Key_Enter, 0},
                                                 {QKeySequence::Open, 1},
                                                 {QKeySequence::Save, 2}};
    for (const auto& [key, button] : keys) {
        connect(new QShortcut(key, this), &QShortcut::activated,
                m_toolbar.at(static_cast<std::size_t>(button)), &QAbstractButton::click);
    }
}
